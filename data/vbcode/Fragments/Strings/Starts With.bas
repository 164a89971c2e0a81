{BOOLEAN:Found} = (StrComp(Left$({STRING:Text}, Len({STRING:Start})), {STRING:Start}, vbTextCompare) = 0)<cursor>
