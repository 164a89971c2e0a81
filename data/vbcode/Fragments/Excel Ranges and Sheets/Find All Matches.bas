With {RANGE:Area}
    Set {RANGE:Found} = .Find(What:={VARIANT:Value}, LookIn:=xlValues, LookAt:=xlPart)
    If Not {RANGE:Found} Is Nothing Then
        {STRING:FirstAddress} = {RANGE:Found}.Address
        Do
            <cursor>
            Set {RANGE:Found} = .FindNext({RANGE:Found})
        Loop While {RANGE:Found}.Address <> {STRING:FirstAddress}
    End If
End With
