' Writes (or replaces) a text file.
{INTEGER:File} = FreeFile
Open {STRING:Path} For Output As #{INTEGER:File}
Print #{INTEGER:File}, {STRING:Text}<cursor>
Close #{INTEGER:File}
