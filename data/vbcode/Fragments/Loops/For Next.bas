For {LONG:Index} = 1 To {LONG:Count}
    <cursor>
Next {LONG:Index}
