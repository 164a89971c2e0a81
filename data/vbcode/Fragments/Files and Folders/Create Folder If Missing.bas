If Len(Dir$({STRING:Folder}, vbDirectory)) = 0 Then
    MkDir {STRING:Folder}
End If
<cursor>
