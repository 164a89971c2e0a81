    On Error GoTo {HANDLEERRORLABEL}
<end_of_top>
<begin_of_bottom>
{HANDLEEXITLABEL}:
    Exit {PROCEDURETYPE}

{HANDLEERRORLABEL}:
    Err.Raise Err.Number, "{MODULENAME}.{PROCEDURENAME}", Err.Description
