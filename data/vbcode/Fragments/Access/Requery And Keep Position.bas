{VARIANT:Key} = Me!ID
Me.Requery
Me.Recordset.FindFirst "[ID] = " & {VARIANT:Key}
<cursor>
