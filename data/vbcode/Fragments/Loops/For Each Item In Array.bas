For {LONG:Index} = LBound({VARIANT:Values}) To UBound({VARIANT:Values})
    {VARIANT:Value} = {VARIANT:Values}({LONG:Index})
    <cursor>
Next {LONG:Index}
