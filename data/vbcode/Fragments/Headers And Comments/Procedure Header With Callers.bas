{INCLUDE vbcode\Fragments\Headers And Comments\ProcedureHeader.bas}
' Called by: <cursor>
