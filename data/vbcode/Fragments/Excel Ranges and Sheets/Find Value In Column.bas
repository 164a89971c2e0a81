Set {RANGE:Found} = {WORKSHEET:Sheet}.Columns({LONG:Column}).Find(What:={VARIANT:Value}, _
    LookIn:=xlValues, LookAt:=xlWhole, MatchCase:=False)
If {RANGE:Found} Is Nothing Then
    <cursor>
Else

End If
