For {LONG:Row} = 1 To {LONG:RowCount}
    For {LONG:Column} = 1 To {LONG:ColumnCount}
        <cursor>
    Next {LONG:Column}
Next {LONG:Row}
