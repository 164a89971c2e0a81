Set {DAO.DATABASE:dbData} = DBEngine.OpenDatabase({STRING:DatabasePath})
<end_of_top>
<cursor>
<begin_of_bottom>
If Not {DAO.DATABASE:dbData} Is Nothing Then
    {DAO.DATABASE:dbData}.Close
    Set {DAO.DATABASE:dbData} = Nothing
End If
