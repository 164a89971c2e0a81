DoCmd.OpenReport ReportName:={STRING:ReportName}, View:=acViewPreview, WhereCondition:={STRING:Criteria}<cursor>
