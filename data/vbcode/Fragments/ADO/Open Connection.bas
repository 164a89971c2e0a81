Set {ADODB.CONNECTION:cnnData} = New ADODB.Connection
{ADODB.CONNECTION:cnnData}.Open {STRING:ConnectionString}
<end_of_top>
<cursor>
<begin_of_bottom>
If Not {ADODB.CONNECTION:cnnData} Is Nothing Then
    If {ADODB.CONNECTION:cnnData}.State <> adStateClosed Then {ADODB.CONNECTION:cnnData}.Close
    Set {ADODB.CONNECTION:cnnData} = Nothing
End If
