Attribute VB_Name = "basUtilities"
'==============================================================================
' Module:    basUtilities
' Purpose:   Small helpers that the other modules share.
'==============================================================================
Option Explicit

' SpeedUp True switches screen updating, events and automatic calculation off
' for long work on the sheets; SpeedUp False switches them on again.
Public Sub SpeedUp(ByVal TurnOn As Boolean)
    With Application
        .ScreenUpdating = Not TurnOn
        .EnableEvents = Not TurnOn
        If TurnOn Then
            .Calculation = xlCalculationManual
        Else
            .Calculation = xlCalculationAutomatic
        End If
    End With
End Sub

' Counts the invoices made since the workbook was opened. The counter keeps its
' value between calls because the function is Static.
Public Static Function SessionInvoiceCount(Optional ByVal Increment As Boolean = False) As Long
    Dim lngCount As Long

    If Increment Then lngCount = lngCount + 1
    SessionInvoiceCount = lngCount
End Function

' Makes a folder, with the folders above it, unless it exists. True when the
' folder exists afterwards.
Public Function FolderEnsure(ByVal Path As String) As Boolean
    Dim varParts As Variant
    Dim strFolder As String
    Dim lngIndex As Long

    If Right$(Path, 1) = "\" Then Path = Left$(Path, Len(Path) - 1)
    varParts = Split(Path, "\")
    On Error Resume Next
    For lngIndex = LBound(varParts) To UBound(varParts)
        strFolder = strFolder & varParts(lngIndex)
        If Len(varParts(lngIndex)) > 0 And Right$(strFolder, 1) <> ":" Then
            If Len(Dir$(strFolder, vbDirectory)) = 0 Then MkDir strFolder
        End If
        strFolder = strFolder & "\"
    Next lngIndex
    On Error GoTo 0
    FolderEnsure = (Len(Dir$(Path, vbDirectory)) > 0)
End Function

' A file name without the characters that file names may not hold.
Public Function FileNameSafe(ByVal Name As String) As String
    Dim lngIndex As Long
    Const cstrBad As String = "\/:*?""<>|"

    For lngIndex = 1 To Len(cstrBad)
        Name = Replace(Name, Mid$(cstrBad, lngIndex, 1), "_")
    Next lngIndex
    FileNameSafe = Trim$(Name)
End Function

' The last row of a sheet with a value in the given column.
Public Function LastRow(ByVal Sheet As Worksheet, Optional ByVal Column As Long = 1) As Long
    LastRow = Sheet.Cells(Sheet.Rows.Count, Column).End(xlUp).Row
End Function

' A sheet name that this workbook does not use yet: Base, else "Base (2)",
' "Base (3)" and so on.
Public Function UniqueSheetName(ByVal Base As String) As String
    Dim strName As String
    Dim lngNumber As Long

    strName = Base
    lngNumber = 1
    Do While SheetExists(strName)
        lngNumber = lngNumber + 1
        strName = Base & " (" & lngNumber & ")"
    Loop
    UniqueSheetName = strName
End Function

' Whether this workbook has a sheet of that name.
Private Function SheetExists(ByVal Name As String) As Boolean
    Dim objSheet As Object

    On Error Resume Next
    Set objSheet = ThisWorkbook.Sheets(Name)
    SheetExists = Not objSheet Is Nothing
End Function
