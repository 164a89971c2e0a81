' Reads a whole text file into one string.
{INTEGER:File} = FreeFile
Open {STRING:Path} For Input As #{INTEGER:File}
If LOF({INTEGER:File}) > 0 Then {STRING:Text} = Input$(LOF({INTEGER:File}), #{INTEGER:File})
Close #{INTEGER:File}
<cursor>
