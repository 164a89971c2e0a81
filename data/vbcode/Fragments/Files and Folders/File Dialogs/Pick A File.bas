With Application.FileDialog(msoFileDialogFilePicker)
    .Title = "Select a file"
    .AllowMultiSelect = False
    .Filters.Clear
    .Filters.Add "All files", "*.*"
    If .Show = -1 Then
        {STRING:Path} = .SelectedItems(1)
        <cursor>
    End If
End With
