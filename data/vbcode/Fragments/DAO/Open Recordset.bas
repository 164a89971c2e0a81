Set {DAO.RECORDSET:rstData} = {DAO.DATABASE:dbData}.OpenRecordset({STRING:Sql}, dbOpenSnapshot)
<cursor>
