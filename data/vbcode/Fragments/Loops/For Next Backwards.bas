' Walk backwards when items are removed inside the loop.
For {LONG:Index} = {LONG:Count} To 1 Step -1
    <cursor>
Next {LONG:Index}
