With {DAO.RECORDSET:rstData}
    Do Until .EOF
        {VARIANT:Value} = .Fields(0).Value
        <cursor>
        .MoveNext
    Loop
    .Close
End With
