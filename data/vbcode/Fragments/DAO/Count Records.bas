' MoveLast makes RecordCount exact; before it only the records read so far are counted.
With {DAO.RECORDSET:rstData}
    If Not .EOF Then .MoveLast
    {LONG:Count} = .RecordCount
    If {LONG:Count} > 0 Then .MoveFirst
End With
<cursor>
