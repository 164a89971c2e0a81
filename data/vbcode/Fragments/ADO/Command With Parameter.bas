Set {ADODB.COMMAND:cmdQuery} = New ADODB.Command
With {ADODB.COMMAND:cmdQuery}
    Set .ActiveConnection = {ADODB.CONNECTION:cnnData}
    .CommandType = adCmdText
    .CommandText = "SELECT * FROM Customers WHERE City = ?"
    .Parameters.Append .CreateParameter("City", adVarWChar, adParamInput, 50, {STRING:City})
    Set {ADODB.RECORDSET:rstData} = .Execute
End With
<cursor>
