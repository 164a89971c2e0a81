If IsDate({STRING:Text}) Then
    {DATE:Day} = CDate({STRING:Text})
    <cursor>
Else
    MsgBox "'" & {STRING:Text} & "' is not a date.", vbExclamation
End If
