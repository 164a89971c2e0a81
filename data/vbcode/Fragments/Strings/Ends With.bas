{BOOLEAN:Found} = (StrComp(Right$({STRING:Text}, Len({STRING:Ending})), {STRING:Ending}, vbTextCompare) = 0)<cursor>
