For Each {RANGE:Cell} In {RANGE:Area}.Cells
    If Not IsEmpty({RANGE:Cell}.Value) Then
        <cursor>
    End If
Next {RANGE:Cell}
