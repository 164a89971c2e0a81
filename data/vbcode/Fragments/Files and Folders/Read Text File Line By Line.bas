{INTEGER:File} = FreeFile
Open {STRING:Path} For Input As #{INTEGER:File}
Do Until EOF({INTEGER:File})
    Line Input #{INTEGER:File}, {STRING:Line}
    <cursor>
Loop
Close #{INTEGER:File}
