With {WORKSHEET:Sheet}.Range("A1").CurrentRegion
    If .Rows.Count > 1 Then .Offset(1, 0).Resize(.Rows.Count - 1).ClearContents
End With
<cursor>
