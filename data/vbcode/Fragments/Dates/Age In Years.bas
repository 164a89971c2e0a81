{INTEGER:Age} = DateDiff("yyyy", {DATE:Birthday}, Date)
If DateSerial(Year(Date), Month({DATE:Birthday}), Day({DATE:Birthday})) > Date Then
    {INTEGER:Age} = {INTEGER:Age} - 1
End If
<cursor>
