    On Error GoTo {HANDLEERRORLABEL}
<end_of_top>
<begin_of_bottom>
{HANDLEEXITLABEL}:
    Exit {PROCEDURETYPE}

{HANDLEERRORLABEL}:
    MsgBox "Error " & Err.Number & ": " & Err.Description, _
        vbExclamation + vbOKOnly, "{MODULENAME}.{PROCEDURENAME}"
    Resume {HANDLEEXITLABEL}
