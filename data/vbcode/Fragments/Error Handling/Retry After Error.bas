' In the error handler: try again a few times before giving up.
{INTEGER:Attempt} = {INTEGER:Attempt} + 1
If {INTEGER:Attempt} <= 3 Then
    <cursor>
    Resume
End If
