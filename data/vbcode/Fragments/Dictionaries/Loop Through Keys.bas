For Each {VARIANT:Key} In {DICTIONARY:Items}.Keys
    {VARIANT:Value} = {DICTIONARY:Items}({VARIANT:Key})
    <cursor>
Next {VARIANT:Key}
