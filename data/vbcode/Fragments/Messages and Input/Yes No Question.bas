If MsgBox({STRING:Question}, vbQuestion + vbYesNo + vbDefaultButton2, "{PROCEDURENAME}") = vbYes Then
    <cursor>
End If
