Set {WORKBOOK:Book} = Nothing
On Error Resume Next
Set {WORKBOOK:Book} = Workbooks({STRING:BookName})
On Error GoTo 0
If Not {WORKBOOK:Book} Is Nothing Then
    <cursor>
End If
