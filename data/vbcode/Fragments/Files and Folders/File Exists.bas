{BOOLEAN:Exists} = (Len(Dir$({STRING:Path}, vbNormal Or vbHidden Or vbReadOnly)) > 0)<cursor>
