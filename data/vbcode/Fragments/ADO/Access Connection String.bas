{STRING:ConnectionString} = "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=" & {STRING:DatabasePath} & ";"<cursor>
