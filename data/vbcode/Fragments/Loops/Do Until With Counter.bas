{LONG:Counter} = 0
Do Until {BOOLEAN:Done}
    {LONG:Counter} = {LONG:Counter} + 1
    <cursor>
Loop
