{LONG:LastRow} = {WORKSHEET:Sheet}.Cells({WORKSHEET:Sheet}.Rows.Count, {LONG:Column}).End(xlUp).Row<cursor>
