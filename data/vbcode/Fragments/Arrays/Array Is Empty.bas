' An array that was never dimensioned raises error 9 on UBound; Array() has UBound -1.
{BOOLEAN:NoItems} = True
On Error Resume Next
{BOOLEAN:NoItems} = (UBound({VARIANT:Values}) < LBound({VARIANT:Values}))
On Error GoTo 0
If {BOOLEAN:NoItems} Then
    <cursor>
End If
