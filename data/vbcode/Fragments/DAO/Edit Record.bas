With {DAO.RECORDSET:rstData}
    .FindFirst {STRING:Criteria}
    If Not .NoMatch Then
        .Edit
        .Fields({STRING:FieldName}).Value = {VARIANT:Value}
        <cursor>
        .Update
    End If
End With
