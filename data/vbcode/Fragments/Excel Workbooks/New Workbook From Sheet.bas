' Copying a sheet without a destination makes a new workbook that holds only it.
{WORKSHEET:Sheet}.Copy
Set {WORKBOOK:Book} = ActiveWorkbook
<cursor>
