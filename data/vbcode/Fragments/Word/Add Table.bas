Set {TABLE:Table} = {DOCUMENT:Document}.Tables.Add(Range:={RANGE:Target}, NumRows:={LONG:Rows}, NumColumns:={LONG:Columns})
With {TABLE:Table}
    .Borders.Enable = True
    .Cell(1, 1).Range.Text = <cursor>""
End With
