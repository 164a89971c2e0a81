' Delete from the bottom, so that the rows still to be checked do not move.
With {WORKSHEET:Sheet}
    For {LONG:Row} = .Cells(.Rows.Count, {LONG:Column}).End(xlUp).Row To 2 Step -1
        If Len(.Cells({LONG:Row}, {LONG:Column}).Text) = 0 Then
            .Rows({LONG:Row}).Delete
        End If
    Next {LONG:Row}
End With
<cursor>
