Set {WORKSHEET:Sheet} = Nothing
On Error Resume Next
Set {WORKSHEET:Sheet} = {WORKBOOK:Book}.Worksheets({STRING:SheetName})
On Error GoTo 0
If {WORKSHEET:Sheet} Is Nothing Then
    Set {WORKSHEET:Sheet} = {WORKBOOK:Book}.Worksheets.Add(After:={WORKBOOK:Book}.Worksheets({WORKBOOK:Book}.Worksheets.Count))
    {WORKSHEET:Sheet}.Name = {STRING:SheetName}
End If
<cursor>
