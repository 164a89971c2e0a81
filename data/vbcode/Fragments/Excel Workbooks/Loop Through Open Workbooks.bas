For Each {WORKBOOK:Book} In Application.Workbooks
    If Not {WORKBOOK:Book} Is ThisWorkbook Then
        <cursor>
    End If
Next {WORKBOOK:Book}
