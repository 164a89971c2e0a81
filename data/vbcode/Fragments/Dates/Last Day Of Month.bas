' Day 0 of the next month is the last day of this one.
{DATE:LastDay} = DateSerial(Year({DATE:Day}), Month({DATE:Day}) + 1, 0)<cursor>
