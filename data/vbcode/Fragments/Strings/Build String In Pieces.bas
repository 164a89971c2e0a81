' Collect the pieces in an array and join once: faster than repeated "&" on long text.
ReDim {VARIANT:Pieces}(1 To {LONG:Count})
For {LONG:Index} = 1 To {LONG:Count}
    <cursor>
    {VARIANT:Pieces}({LONG:Index}) = {STRING:Piece}
Next {LONG:Index}
{STRING:Text} = Join({VARIANT:Pieces}, vbCrLf)
