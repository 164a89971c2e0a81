' The object is released on the way out, above the exit of the procedure.
<cursor>
<begin_of_bottom>
Set {OBJECT:Item} = Nothing
