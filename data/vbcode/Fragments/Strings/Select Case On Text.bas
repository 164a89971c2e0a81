Select Case LCase$(Trim$({STRING:Text}))
    Case "yes", "y", "true"
        <cursor>
    Case "no", "n", "false"

    Case Else

End Select
