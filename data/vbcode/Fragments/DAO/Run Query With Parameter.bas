Set {DAO.QUERYDEF:qdfQuery} = {DAO.DATABASE:dbData}.QueryDefs({STRING:QueryName})
{DAO.QUERYDEF:qdfQuery}.Parameters({STRING:ParameterName}).Value = {VARIANT:Value}
Set {DAO.RECORDSET:rstData} = {DAO.QUERYDEF:qdfQuery}.OpenRecordset(dbOpenSnapshot)
<cursor>
