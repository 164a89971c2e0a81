{INTEGER:File} = FreeFile
Open {STRING:Path} For Append As #{INTEGER:File}
Print #{INTEGER:File}, {STRING:Text}<cursor>
Close #{INTEGER:File}
