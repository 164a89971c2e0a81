Attribute VB_Name = "basMain"
'==============================================================================
' Module:    basMain
' Purpose:   The macros behind the buttons of the workbook: new invoice, print,
'            PDF export and payments.
'==============================================================================
Option Explicit

Private Const cstrModule As String = "basMain"

' Opens the invoice form on a new invoice with the next free number.
Public Sub NewInvoice()
    Dim objInvoice As clsInvoice

    Set objInvoice = New clsInvoice
    objInvoice.Number = NextInvoiceNumber(Date)
    objInvoice.InvoiceDate = Date

    Set frmInvoice.Invoice = objInvoice
    frmInvoice.Show vbModal
    If Not frmInvoice.Cancelled Then
        SessionInvoiceCount Increment:=True
        Application.StatusBar = "Invoice " & objInvoice.Number & " saved."
    End If
    Unload frmInvoice
End Sub

' Opens the invoice of the selected row of the register.
Public Sub EditSelectedInvoice()
    Dim objInvoice As clsInvoice
    Dim strNumber As String

    strNumber = CStr(shtInvoices.Cells(ActiveCell.Row, 1).Value)
    Set objInvoice = InvoiceLoad(strNumber)
    If objInvoice Is Nothing Then
        MsgBox "Select a row of the register first.", vbInformation, "Invoices"
        Exit Sub
    End If

    Set frmInvoice.Invoice = objInvoice
    frmInvoice.Show vbModal
    Unload frmInvoice
End Sub

' Marks the invoice of the selected row as paid, after asking.
Public Sub MarkSelectedInvoicePaid()
    Dim strNumber As String

    strNumber = CStr(shtInvoices.Cells(ActiveCell.Row, 1).Value)
    If Len(strNumber) = 0 Or ActiveSheet.Name <> shtInvoices.Name Then Exit Sub

    If MsgBox("Mark invoice " & strNumber & " as paid?", _
            vbQuestion + vbYesNo, "Invoices") = vbYes Then
        If Not InvoiceStatusSet(strNumber, isPaid) Then
            MsgBox "Invoice " & strNumber & " is not in the register.", vbExclamation, "Invoices"
        End If
    End If
End Sub

' Fills the printable invoice sheet with the invoice of the selected row and
' shows it in the print preview.
Public Sub PrintInvoice()
    Dim objInvoice As clsInvoice

    On Error GoTo HandleError

    Set objInvoice = InvoiceLoad(CStr(shtInvoices.Cells(ActiveCell.Row, 1).Value))
    If objInvoice Is Nothing Then Exit Sub
    InvoiceSheetFill objInvoice
    shtInvoice.PrintPreview

HandleExit:
    Exit Sub

HandleError:
    MsgBox Err.Description, vbExclamation, cstrModule & ".PrintInvoice"
    Resume HandleExit
End Sub

' Saves the printable invoice sheet as a PDF file in the invoice folder.
Public Sub ExportInvoicePdf()
    Dim objInvoice As clsInvoice
    Dim strPath As String

    Set objInvoice = InvoiceLoad(CStr(shtInvoices.Cells(ActiveCell.Row, 1).Value))
    If objInvoice Is Nothing Then Exit Sub

    InvoiceSheetFill objInvoice
    If Not FolderEnsure(InvoiceFolder()) Then
        MsgBox "The folder " & InvoiceFolder() & " cannot be made.", vbExclamation, "Invoices"
        Exit Sub
    End If
    strPath = InvoiceFolder() & FileNameSafe("Invoice " & objInvoice.Number & " " _
        & objInvoice.Customer.Name) & ".pdf"
    shtInvoice.ExportAsFixedFormat Type:=xlTypePDF, Filename:=strPath, _
        Quality:=xlQualityStandard, OpenAfterPublish:=False
    Application.StatusBar = "Saved " & strPath
End Sub

' Writes the head data of an invoice into the named cells of the printable sheet.
Private Sub InvoiceSheetFill(ByVal Invoice As clsInvoice)
    Dim udtTotals As InvoiceTotals

    udtTotals = InvoiceTotalsGet(Invoice)
    With shtInvoice
        .Range("InvoiceNumber").Value = Invoice.Number
        .Range("InvoiceDate").Value = Invoice.InvoiceDate
        .Range("DueDate").Value = Invoice.DueDate
        .Range("CustomerAddress").Value = Invoice.Customer.AddressBlock
        .Range("TotalNet").Value = udtTotals.Net
        .Range("TotalVat").Value = udtTotals.Vat
        .Range("TotalGross").Value = udtTotals.Gross
        .Range("Company").Value = CompanyName()
    End With
End Sub
