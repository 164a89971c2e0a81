Debug.Print Format$(Now, "hh:nn:ss"); " {MODULENAME}.{PROCEDURENAME}: "; <cursor>
