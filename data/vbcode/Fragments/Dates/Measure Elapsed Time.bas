{SINGLE:Started} = Timer
<end_of_top>
<cursor>
<begin_of_bottom>
Debug.Print "{PROCEDURENAME} took " & Format$(Timer - {SINGLE:Started}, "0.00") & " s"
