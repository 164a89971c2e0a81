' Doubles the single quotes so that a value can stand inside an SQL text.
{STRING:Sql} = "'" & Replace({STRING:Value}, "'", "''") & "'"<cursor>
