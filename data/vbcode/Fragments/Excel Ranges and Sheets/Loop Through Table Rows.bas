For Each {LISTROW:Row} In {LISTOBJECT:Table}.ListRows
    {VARIANT:Value} = {LISTROW:Row}.Range.Cells(1, 1).Value
    <cursor>
Next {LISTROW:Row}
