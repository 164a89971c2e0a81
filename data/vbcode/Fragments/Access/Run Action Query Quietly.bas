DoCmd.SetWarnings False
<end_of_top>
DoCmd.OpenQuery {STRING:QueryName}<cursor>
<begin_of_bottom>
DoCmd.SetWarnings True
