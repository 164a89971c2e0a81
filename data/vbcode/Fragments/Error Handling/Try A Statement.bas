' Runs one statement that may fail, then tells success from failure.
On Error Resume Next
<cursor>
{LONG:ErrorNumber} = Err.Number
On Error GoTo 0
If {LONG:ErrorNumber} <> 0 Then

End If
