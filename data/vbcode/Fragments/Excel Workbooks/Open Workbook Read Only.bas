Set {WORKBOOK:Book} = Workbooks.Open(Filename:={STRING:Path}, ReadOnly:=True, UpdateLinks:=0)
<cursor>
{WORKBOOK:Book}.Close SaveChanges:=False
