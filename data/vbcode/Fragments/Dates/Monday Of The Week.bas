{DATE:Monday} = {DATE:Day} - Weekday({DATE:Day}, vbMonday) + 1<cursor>
