Set {FILESYSTEMOBJECT:FileSystem} = New Scripting.FileSystemObject
For Each {FILE:File} In {FILESYSTEMOBJECT:FileSystem}.GetFolder({STRING:Folder}).Files
    <cursor>
Next {FILE:File}
