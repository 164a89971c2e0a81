' Work on an array instead of cell by cell: one read, one write, much faster.
{VARIANT:Values} = {RANGE:Area}.Value
For {LONG:Row} = 1 To UBound({VARIANT:Values}, 1)
    For {LONG:Column} = 1 To UBound({VARIANT:Values}, 2)
        ' {VARIANT:Values}({LONG:Row}, {LONG:Column}) holds the value of one cell.
        <cursor>
    Next {LONG:Column}
Next {LONG:Row}
{RANGE:Area}.Value = {VARIANT:Values}
