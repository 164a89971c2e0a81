For Each {WORKSHEET:Sheet} In {WORKBOOK:Book}.Worksheets
    <cursor>
Next {WORKSHEET:Sheet}
