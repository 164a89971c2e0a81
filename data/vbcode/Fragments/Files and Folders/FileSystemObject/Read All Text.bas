Set {FILESYSTEMOBJECT:FileSystem} = New Scripting.FileSystemObject
With {FILESYSTEMOBJECT:FileSystem}.OpenTextFile({STRING:Path}, ForReading)
    {STRING:Text} = .ReadAll
    .Close
End With
<cursor>
