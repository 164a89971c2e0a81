For {LONG:Position} = 1 To Len({STRING:Text})
    {STRING:Char} = Mid$({STRING:Text}, {LONG:Position}, 1)
    <cursor>
Next {LONG:Position}
