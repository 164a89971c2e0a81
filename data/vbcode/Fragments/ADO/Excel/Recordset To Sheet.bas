' Field names in the first row, the records below them.
For {LONG:Column} = 0 To {ADODB.RECORDSET:rstData}.Fields.Count - 1
    {RANGE:Target}.Offset(0, {LONG:Column}).Value = {ADODB.RECORDSET:rstData}.Fields({LONG:Column}).Name
Next {LONG:Column}
{RANGE:Target}.Offset(1, 0).CopyFromRecordset {ADODB.RECORDSET:rstData}
<cursor>
