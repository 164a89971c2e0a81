For {LONG:Outer} = LBound({VARIANT:Values}) To UBound({VARIANT:Values}) - 1
    For {LONG:Inner} = LBound({VARIANT:Values}) To UBound({VARIANT:Values}) - 1 - ({LONG:Outer} - LBound({VARIANT:Values}))
        If {VARIANT:Values}({LONG:Inner}) > {VARIANT:Values}({LONG:Inner} + 1) Then
            {VARIANT:Swap} = {VARIANT:Values}({LONG:Inner})
            {VARIANT:Values}({LONG:Inner}) = {VARIANT:Values}({LONG:Inner} + 1)
            {VARIANT:Values}({LONG:Inner} + 1) = {VARIANT:Swap}
        End If
    Next {LONG:Inner}
Next {LONG:Outer}
<cursor>
