{LONG:LastColumn} = {WORKSHEET:Sheet}.Cells({LONG:Row}, {WORKSHEET:Sheet}.Columns.Count).End(xlToLeft).Column<cursor>
