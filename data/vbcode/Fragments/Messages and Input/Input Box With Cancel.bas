' StrPtr tells a cancelled box (no string at all) from an empty answer.
{STRING:Answer} = InputBox({STRING:Prompt}, "{PROCEDURENAME}")
If StrPtr({STRING:Answer}) = 0 Then
    Exit {PROCEDURETYPE}
End If
<cursor>
