With {WORKSHEET:Sheet}.Sort
    .SortFields.Clear
    .SortFields.Add Key:={RANGE:SortColumn}, Order:=xlAscending
    .SetRange {RANGE:Area}
    .Header = xlYes
    .Apply
End With
<cursor>
