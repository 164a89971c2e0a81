With {DAO.RECORDSET:rstData}
    .AddNew
    .Fields({STRING:FieldName}).Value = {VARIANT:Value}
    <cursor>
    .Update
End With
