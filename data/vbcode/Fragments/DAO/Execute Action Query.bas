' dbFailOnError turns a failing statement into a trappable error.
{DAO.DATABASE:dbData}.Execute {STRING:Sql}, dbFailOnError
{LONG:RowsAffected} = {DAO.DATABASE:dbData}.RecordsAffected
<cursor>
