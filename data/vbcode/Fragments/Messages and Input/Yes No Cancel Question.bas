Select Case MsgBox({STRING:Question}, vbQuestion + vbYesNoCancel, "{PROCEDURENAME}")
    Case vbYes
        <cursor>
    Case vbNo

    Case Else
        Exit {PROCEDURETYPE}
End Select
