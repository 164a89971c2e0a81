{STRING:Copy} = {WORKBOOK:Book}.Path & Application.PathSeparator _
    & Format$(Date, "yyyy-mm-dd") & " " & {WORKBOOK:Book}.Name
{WORKBOOK:Book}.SaveCopyAs {STRING:Copy}
<cursor>
