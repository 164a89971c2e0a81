Err.Raise Number:=vbObjectError + {LONG:ErrorCode=513}, Source:="{MODULENAME}.{PROCEDURENAME}", _
    Description:=<cursor>"Describe what went wrong."
