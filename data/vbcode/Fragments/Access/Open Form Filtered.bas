DoCmd.OpenForm FormName:={STRING:FormName}, WhereCondition:="[ID] = " & {LONG:Id}<cursor>
