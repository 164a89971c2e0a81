{LONG:Start} = InStr(1, {STRING:Text}, {STRING:Before}, vbTextCompare)
If {LONG:Start} > 0 Then
    {LONG:Start} = {LONG:Start} + Len({STRING:Before})
    {LONG:Finish} = InStr({LONG:Start}, {STRING:Text}, {STRING:After}, vbTextCompare)
    If {LONG:Finish} > 0 Then
        {STRING:Between} = Mid$({STRING:Text}, {LONG:Start}, {LONG:Finish} - {LONG:Start})
        <cursor>
    End If
End If
