With Application.FileDialog(msoFileDialogFolderPicker)
    .Title = "Select a folder"
    If .Show = -1 Then
        {STRING:Folder} = .SelectedItems(1)
        <cursor>
    End If
End With
