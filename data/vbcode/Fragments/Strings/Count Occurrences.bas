{LONG:Count} = (Len({STRING:Text}) - Len(Replace({STRING:Text}, {STRING:Part}, vbNullString))) \ Len({STRING:Part})<cursor>
