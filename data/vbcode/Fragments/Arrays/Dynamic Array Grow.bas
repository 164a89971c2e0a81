' Grow in steps and trim once at the end: ReDim Preserve copies the whole array.
' The array must have been dimensioned once, such as ReDim Values(1 To 16).
{LONG:Count} = {LONG:Count} + 1
If {LONG:Count} > UBound({VARIANT:Values}) Then
    ReDim Preserve {VARIANT:Values}(1 To {LONG:Count} * 2)
End If
{VARIANT:Values}({LONG:Count}) = <cursor>Empty
