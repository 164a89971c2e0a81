{STRING:Folder} = Left$({STRING:Path}, InStrRev({STRING:Path}, "\"))<cursor>
