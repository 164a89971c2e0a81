If Len({STRING:Value}) = 0 Then
    Err.Raise Number:=5, Source:="{MODULENAME}.{PROCEDURENAME}", Description:="The argument must not be empty."
End If
<cursor>
