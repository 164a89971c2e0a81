{STRING:Folder} = ThisWorkbook.Path & Application.PathSeparator<cursor>
