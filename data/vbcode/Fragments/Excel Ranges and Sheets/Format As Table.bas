Set {LISTOBJECT:Table} = {WORKSHEET:Sheet}.ListObjects.Add(xlSrcRange, {RANGE:Area}, , xlYes)
{LISTOBJECT:Table}.Name = {STRING:TableName}
<cursor>
