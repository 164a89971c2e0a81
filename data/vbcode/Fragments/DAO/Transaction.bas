' Everything between BeginTrans and CommitTrans is saved together or not at all:
' call Rollback on the workspace in the error handler.
Set {DAO.WORKSPACE:wspMain} = DBEngine.Workspaces(0)
{DAO.WORKSPACE:wspMain}.BeginTrans
<cursor>
{DAO.WORKSPACE:wspMain}.CommitTrans
