Attribute VB_Name = "modFiles"
'==============================================================================
' Module:    modFiles
' Purpose:   Files, folders and paths with the statements of VBA itself (Dir,
'            Open, MkDir): no reference to another library is needed.
'            Every procedure stands alone.
'==============================================================================
Option Explicit

Public Function FileExists(ByVal Path As String) As Boolean
'------------------------------------------------------------------------------
' Purpose: Whether the file exists, hidden and read-only files included.
'------------------------------------------------------------------------------
    If Len(Path) = 0 Then Exit Function
    On Error Resume Next
    FileExists = ((GetAttr(Path) And vbDirectory) = 0)
End Function

Public Function FolderExists(ByVal Path As String) As Boolean
'------------------------------------------------------------------------------
' Purpose: Whether the folder exists.
'------------------------------------------------------------------------------
    If Len(Path) = 0 Then Exit Function
    On Error Resume Next
    FolderExists = ((GetAttr(Path) And vbDirectory) = vbDirectory)
End Function

Public Function FolderCreate(ByVal Path As String) As Boolean
'------------------------------------------------------------------------------
' Purpose: Makes the folder with every missing folder above it. True when the
'          folder exists afterwards.
' Example: FolderCreate("C:\Data\2024\Invoices")
'------------------------------------------------------------------------------
    Dim varParts As Variant
    Dim strFolder As String
    Dim lngIndex As Long

    If Right$(Path, 1) = "\" Then Path = Left$(Path, Len(Path) - 1)
    varParts = Split(Path, "\")
    On Error Resume Next
    For lngIndex = LBound(varParts) To UBound(varParts)
        strFolder = strFolder & varParts(lngIndex)
        ' A drive ("C:") and the empty parts of a network path are not made.
        If Len(varParts(lngIndex)) > 0 And Right$(strFolder, 1) <> ":" Then
            If Len(Dir$(strFolder, vbDirectory)) = 0 Then MkDir strFolder
        End If
        strFolder = strFolder & "\"
    Next lngIndex
    On Error GoTo 0
    FolderCreate = (Len(Dir$(Path, vbDirectory)) > 0)
End Function

Public Function FileReadAll(ByVal Path As String) As String
'------------------------------------------------------------------------------
' Purpose: The whole content of a text file; raises error 53 when it is missing.
'------------------------------------------------------------------------------
    Dim intFile As Integer

    intFile = FreeFile
    Open Path For Input As #intFile
    If LOF(intFile) > 0 Then FileReadAll = Input$(LOF(intFile), #intFile)
    Close #intFile
End Function

Public Sub FileWriteAll(ByVal Path As String, ByVal Text As String, _
        Optional ByVal AppendToFile As Boolean = False)
'------------------------------------------------------------------------------
' Purpose: Writes Text to the file, replacing it or appending to it. No line
'          end is added behind the text.
'------------------------------------------------------------------------------
    Dim intFile As Integer

    intFile = FreeFile
    If AppendToFile Then
        Open Path For Append As #intFile
    Else
        Open Path For Output As #intFile
    End If
    Print #intFile, Text;
    Close #intFile
End Sub

Public Function PathCombine(ByVal Folder As String, ByVal Name As String) As String
'------------------------------------------------------------------------------
' Purpose: Folder and name joined by exactly one backslash.
' Example: PathCombine("C:\Data\", "\x.txt") returns "C:\Data\x.txt".
'------------------------------------------------------------------------------
    Do While Right$(Folder, 1) = "\"
        Folder = Left$(Folder, Len(Folder) - 1)
    Loop
    Do While Left$(Name, 1) = "\"
        Name = Mid$(Name, 2)
    Loop
    PathCombine = Folder & "\" & Name
End Function

Public Function PathFileName(ByVal Path As String) As String
'------------------------------------------------------------------------------
' Purpose: The name behind the last backslash.
' Example: PathFileName("C:\Data\x.txt") returns "x.txt".
'------------------------------------------------------------------------------
    PathFileName = Mid$(Path, InStrRev(Path, "\") + 1)
End Function

Public Function PathFolder(ByVal Path As String) As String
'------------------------------------------------------------------------------
' Purpose: The folder of a path, with its final backslash.
' Example: PathFolder("C:\Data\x.txt") returns "C:\Data\".
'------------------------------------------------------------------------------
    PathFolder = Left$(Path, InStrRev(Path, "\"))
End Function

Public Function PathExtension(ByVal Path As String) As String
'------------------------------------------------------------------------------
' Purpose: The extension of the file name without its dot; empty when none.
' Example: PathExtension("C:\Data.2024\x.txt") returns "txt".
'------------------------------------------------------------------------------
    Dim strName As String

    strName = Mid$(Path, InStrRev(Path, "\") + 1)
    If InStrRev(strName, ".") > 0 Then PathExtension = Mid$(strName, InStrRev(strName, ".") + 1)
End Function

Public Function PathChangeExtension(ByVal Path As String, ByVal Extension As String) As String
'------------------------------------------------------------------------------
' Purpose: The path with another extension (given without its dot).
' Example: PathChangeExtension("C:\x.xlsm", "pdf") returns "C:\x.pdf".
'------------------------------------------------------------------------------
    Dim lngDot As Long

    lngDot = InStrRev(Path, ".")
    If lngDot <= InStrRev(Path, "\") Then lngDot = Len(Path) + 1
    PathChangeExtension = Left$(Path, lngDot - 1) & "." & Extension
End Function

Public Function FilesInFolder(ByVal Folder As String, Optional ByVal Pattern As String = "*.*") _
        As Collection
'------------------------------------------------------------------------------
' Purpose: The full paths of the files in a folder that match the pattern,
'          in the order Dir gives them.
'------------------------------------------------------------------------------
    Dim colFiles As Collection
    Dim strName As String

    Set colFiles = New Collection
    If Right$(Folder, 1) <> "\" Then Folder = Folder & "\"
    strName = Dir$(Folder & Pattern, vbNormal Or vbHidden Or vbReadOnly)
    Do While Len(strName) > 0
        colFiles.Add Folder & strName
        strName = Dir$()
    Loop
    Set FilesInFolder = colFiles
End Function

Public Function FileNameSafe(ByVal Name As String, Optional ByVal Replacement As String = "_") _
        As String
'------------------------------------------------------------------------------
' Purpose: Name with every character that a file name may not hold replaced.
' Example: FileNameSafe("Invoice 12/2024: Garden Shop") returns
'          "Invoice 12_2024_ Garden Shop".
'------------------------------------------------------------------------------
    Dim lngIndex As Long
    Dim strBad As String

    strBad = "\/:*?""<>|"
    For lngIndex = 1 To Len(strBad)
        Name = Replace(Name, Mid$(strBad, lngIndex, 1), Replacement)
    Next lngIndex
    FileNameSafe = Trim$(Name)
End Function
