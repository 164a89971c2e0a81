With {RANGE:Area}
    .AutoFilter Field:={LONG:Field}, Criteria1:={STRING:Criteria}
    .SpecialCells(xlCellTypeVisible).Copy Destination:={RANGE:Target}
    .AutoFilter
End With
<cursor>
