If Len(Dir$({STRING:Path})) > 0 Then
    SetAttr {STRING:Path}, vbNormal
    Kill {STRING:Path}
End If
<cursor>
