' Dir returns the matching names one by one, then an empty string.
{STRING:FileName} = Dir$({STRING:Folder} & "\*.*")
Do While Len({STRING:FileName}) > 0
    <cursor>
    {STRING:FileName} = Dir$()
Loop
