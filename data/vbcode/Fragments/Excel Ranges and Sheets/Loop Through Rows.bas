With {WORKSHEET:Sheet}
    For {LONG:Row} = 2 To .Cells(.Rows.Count, 1).End(xlUp).Row
        {VARIANT:Value} = .Cells({LONG:Row}, 1).Value
        <cursor>
    Next {LONG:Row}
End With
