Application.ScreenUpdating = False
Application.EnableEvents = False
Application.Calculation = xlCalculationManual
<end_of_top>
<cursor>
<begin_of_bottom>
Application.Calculation = xlCalculationAutomatic
Application.EnableEvents = True
Application.ScreenUpdating = True
