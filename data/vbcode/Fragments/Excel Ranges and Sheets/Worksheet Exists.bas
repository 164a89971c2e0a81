Set {WORKSHEET:Sheet} = Nothing
On Error Resume Next
Set {WORKSHEET:Sheet} = {WORKBOOK:Book}.Worksheets({STRING:SheetName})
On Error GoTo 0
If {WORKSHEET:Sheet} Is Nothing Then
    <cursor>
End If
