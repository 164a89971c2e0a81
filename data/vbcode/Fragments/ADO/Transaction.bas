' Everything between BeginTrans and CommitTrans is saved together or not at all:
' call RollbackTrans on the connection in the error handler.
{ADODB.CONNECTION:cnnData}.BeginTrans
<cursor>
{ADODB.CONNECTION:cnnData}.CommitTrans
