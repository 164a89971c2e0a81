If {DICTIONARY:Items}.Exists({VARIANT:Key}) Then
    {DICTIONARY:Items}({VARIANT:Key}) = {VARIANT:Value}
Else
    {DICTIONARY:Items}.Add {VARIANT:Key}, {VARIANT:Value}
End If
<cursor>
