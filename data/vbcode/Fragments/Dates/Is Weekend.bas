{BOOLEAN:Weekend} = (Weekday({DATE:Day}, vbMonday) > 5)<cursor>
