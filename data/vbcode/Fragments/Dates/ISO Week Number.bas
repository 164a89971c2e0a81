' The week of the year by ISO 8601: weeks start on Monday, week 1 holds the first Thursday.
{INTEGER:Week} = DatePart("ww", {DATE:Day}, vbMonday, vbFirstFourDays)
If {INTEGER:Week} = 53 And DatePart("ww", {DATE:Day} + 7, vbMonday, vbFirstFourDays) = 2 Then
    {INTEGER:Week} = 1
End If
<cursor>
