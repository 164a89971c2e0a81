' Keeps the host responsive during a long loop.
For {LONG:Index} = 1 To {LONG:Count}
    If {LONG:Index} Mod 100 = 0 Then DoEvents
    <cursor>
Next {LONG:Index}
