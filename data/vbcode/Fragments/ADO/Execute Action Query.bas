{ADODB.CONNECTION:cnnData}.Execute {STRING:Sql}, {LONG:RowsAffected}, adCmdText + adExecuteNoRecords
<cursor>
