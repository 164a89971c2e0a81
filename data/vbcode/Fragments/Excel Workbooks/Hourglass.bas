Application.Cursor = xlWait
<end_of_top>
<cursor>
<begin_of_bottom>
Application.Cursor = xlDefault
