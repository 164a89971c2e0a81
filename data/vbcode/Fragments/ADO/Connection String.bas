' The provider and the data source depend on the kind of database.
{STRING:ConnectionString} = "Provider=" & {STRING:Provider} & ";Data Source=" & {STRING:DataSource} & ";"<cursor>
