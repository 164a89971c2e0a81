' A loop that cannot run away: it stops after a fixed number of rounds.
{LONG:Round} = 0
Do
    {LONG:Round} = {LONG:Round} + 1
    If {LONG:Round} > {LONG:MaxRounds=1000} Then Exit Do
    <cursor>
Loop Until {BOOLEAN:Done}
