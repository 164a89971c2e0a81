{VARIANT:Parts} = Split({STRING:Text}, ",")
For {LONG:Index} = LBound({VARIANT:Parts}) To UBound({VARIANT:Parts})
    {STRING:Part} = Trim$({VARIANT:Parts}({LONG:Index}))
    <cursor>
Next {LONG:Index}
