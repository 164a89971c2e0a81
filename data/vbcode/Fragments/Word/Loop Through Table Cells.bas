For {LONG:Row} = 1 To {TABLE:Table}.Rows.Count
    For {LONG:Column} = 1 To {TABLE:Table}.Columns.Count
        {STRING:Text} = {TABLE:Table}.Cell({LONG:Row}, {LONG:Column}).Range.Text
        ' A cell's text ends with the end-of-cell mark: two characters.
        {STRING:Text} = Left$({STRING:Text}, Len({STRING:Text}) - 2)
        <cursor>
    Next {LONG:Column}
Next {LONG:Row}
