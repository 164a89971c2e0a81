' Moves forward day by day and counts only Monday to Friday.
{DATE:Result} = {DATE:Start}
{LONG:Added} = 0
Do While {LONG:Added} < {LONG:Days}
    {DATE:Result} = {DATE:Result} + 1
    If Weekday({DATE:Result}, vbMonday) <= 5 Then {LONG:Added} = {LONG:Added} + 1
Loop
<cursor>
