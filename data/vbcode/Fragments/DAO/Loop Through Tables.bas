For Each {DAO.TABLEDEF:tdfTable} In {DAO.DATABASE:dbData}.TableDefs
    If Not {DAO.TABLEDEF:tdfTable}.Name Like "MSys*" And Not {DAO.TABLEDEF:tdfTable}.Name Like "~*" Then
        <cursor>
    End If
Next {DAO.TABLEDEF:tdfTable}
