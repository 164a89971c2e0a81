{STRING:FileName} = Mid$({STRING:Path}, InStrRev({STRING:Path}, "\") + 1)<cursor>
