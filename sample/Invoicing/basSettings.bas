Attribute VB_Name = "basSettings"
'==============================================================================
' Module:    basSettings
' Purpose:   The settings of the workbook, kept in named cells of the Settings
'            sheet, with a default for each one that is missing or empty.
'==============================================================================
Option Explicit

' The VAT rate as a fraction, such as 0.19.
Public Function VatRate() As Double
    VatRate = CDbl(SettingValue("VatRate", 0.19))
End Function

' The name that heads every invoice.
Public Function CompanyName() As String
    CompanyName = CStr(SettingValue("CompanyName", "Our Company"))
End Function

' The folder for the PDF files of the invoices; beside the workbook unless the
' Settings sheet names another one.
Public Function InvoiceFolder() As String
    Dim strFolder As String

    strFolder = CStr(SettingValue("InvoiceFolder", ThisWorkbook.Path & "\Invoices"))
    If Right$(strFolder, 1) <> "\" Then strFolder = strFolder & "\"
    InvoiceFolder = strFolder
End Function

' The value of a named cell of this workbook, or Default when the name is
' missing, refers to no cell, or the cell is empty.
Private Function SettingValue(ByVal Name As String, ByVal Default As Variant) As Variant
    Dim rngCell As Range

    On Error Resume Next
    Set rngCell = ThisWorkbook.Names(Name).RefersToRange
    On Error GoTo 0

    If rngCell Is Nothing Then
        SettingValue = Default
    ElseIf IsEmpty(rngCell.Value) Then
        SettingValue = Default
    Else
        SettingValue = rngCell.Value
    End If
End Function
