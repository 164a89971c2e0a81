Set {DAO.DATABASE:dbData} = CurrentDb
<end_of_top>
<cursor>
<begin_of_bottom>
Set {DAO.DATABASE:dbData} = Nothing
