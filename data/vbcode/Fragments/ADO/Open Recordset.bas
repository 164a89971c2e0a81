Set {ADODB.RECORDSET:rstData} = New ADODB.Recordset
{ADODB.RECORDSET:rstData}.Open {STRING:Sql}, {ADODB.CONNECTION:cnnData}, adOpenForwardOnly, adLockReadOnly, adCmdText
<cursor>
