{BOOLEAN:Found} = (InStr(1, {STRING:Text}, {STRING:Part}, vbTextCompare) > 0)<cursor>
