{BOOLEAN:Exists} = (Len(Dir$({STRING:Folder}, vbDirectory)) > 0)<cursor>
