Attribute VB_Name = "basInvoicing"
'==============================================================================
' Module:    basInvoicing
' Purpose:   The invoice register: numbering, totals with VAT, saving an
'            invoice to the register sheet and reading it back.
'==============================================================================
Option Explicit

Private Const cstrModule As String = "basInvoicing"

' The days a customer has to pay, counted from the invoice date.
Public Const gcintPaymentDays As Integer = 30

' The life of an invoice, as kept in the Status column of the register.
Public Enum InvoiceStatus
    isDraft = 0
    isIssued = 1
    isPaid = 2
    isCancelled = 3
End Enum

' The sums of one invoice.
Public Type InvoiceTotals
    Net As Currency
    Vat As Currency
    Gross As Currency
    LineCount As Long
End Type

' The columns of the register sheet, left to right.
Private Enum RegisterColumn
    rcNumber = 1
    rcDate
    rcCustomer
    rcNet
    rcVat
    rcGross
    rcStatus
    rcDueDate
End Enum

' The number for the next invoice of a year: the year and a running number,
' such as "2024-0007". The register is searched for the highest number so far.
Public Function NextInvoiceNumber(Optional ByVal InvoiceDate As Date = 0) As String
    Dim lngRow As Long
    Dim lngHighest As Long
    Dim strNumber As String
    Dim strYear As String

    If InvoiceDate = 0 Then InvoiceDate = Date
    strYear = Format$(InvoiceDate, "yyyy")
    With shtInvoices
        For lngRow = 2 To .Cells(.Rows.Count, rcNumber).End(xlUp).Row
            strNumber = CStr(.Cells(lngRow, rcNumber).Value)
            If Left$(strNumber, 5) = strYear & "-" Then
                If Val(Mid$(strNumber, 6)) > lngHighest Then lngHighest = Val(Mid$(strNumber, 6))
            End If
        Next lngRow
    End With
    NextInvoiceNumber = strYear & "-" & Format$(lngHighest + 1, "0000")
End Function

' Adds up the lines of an invoice; VAT is rounded to the cent once, on the net sum.
Public Function InvoiceTotalsGet(ByVal Invoice As clsInvoice) As InvoiceTotals
    Dim udtTotals As InvoiceTotals
    Dim objLine As clsInvoiceLine

    For Each objLine In Invoice.Lines
        udtTotals.Net = udtTotals.Net + objLine.Amount
        udtTotals.LineCount = udtTotals.LineCount + 1
    Next objLine
    udtTotals.Vat = Round(udtTotals.Net * VatRate(), 2)
    udtTotals.Gross = udtTotals.Net + udtTotals.Vat
    InvoiceTotalsGet = udtTotals
End Function

' Writes an invoice into the register: over its old row when the number is
' already there, else into a new row at the bottom.
Public Sub InvoiceSave(ByVal Invoice As clsInvoice)
    Dim udtTotals As InvoiceTotals
    Dim lngRow As Long

    On Error GoTo HandleError

    udtTotals = InvoiceTotalsGet(Invoice)
    lngRow = RegisterRowFind(Invoice.Number)
    If lngRow = 0 Then
        lngRow = shtInvoices.Cells(shtInvoices.Rows.Count, rcNumber).End(xlUp).Row + 1
    End If

    With shtInvoices
        .Cells(lngRow, rcNumber).Value = Invoice.Number
        .Cells(lngRow, rcDate).Value = Invoice.InvoiceDate
        .Cells(lngRow, rcCustomer).Value = Invoice.Customer.Id
        .Cells(lngRow, rcNet).Value = udtTotals.Net
        .Cells(lngRow, rcVat).Value = udtTotals.Vat
        .Cells(lngRow, rcGross).Value = udtTotals.Gross
        .Cells(lngRow, rcStatus).Value = StatusText(Invoice.Status)
        .Cells(lngRow, rcDueDate).Value = Invoice.DueDate
    End With
    Invoice.MarkSaved

HandleExit:
    Exit Sub

HandleError:
    MsgBox "The invoice " & Invoice.Number & " could not be saved:" & vbCrLf & Err.Description, _
        vbExclamation + vbOKOnly, cstrModule & ".InvoiceSave"
    Resume HandleExit
End Sub

' Reads the head of an invoice back from the register; Nothing when the
' number is unknown. The lines live in the invoice files, not in the register.
Public Function InvoiceLoad(ByVal Number As String) As clsInvoice
    Dim objInvoice As clsInvoice
    Dim lngRow As Long

    lngRow = RegisterRowFind(Number)
    If lngRow = 0 Then Exit Function

    Set objInvoice = New clsInvoice
    With shtInvoices
        objInvoice.Number = .Cells(lngRow, rcNumber).Value
        objInvoice.InvoiceDate = .Cells(lngRow, rcDate).Value
        Set objInvoice.Customer = CustomerFind(CStr(.Cells(lngRow, rcCustomer).Value))
        objInvoice.Status = StatusFromText(CStr(.Cells(lngRow, rcStatus).Value))
    End With
    objInvoice.MarkSaved
    Set InvoiceLoad = objInvoice
End Function

' Sets the status of an invoice in the register. False when it is not there.
Public Function InvoiceStatusSet(ByVal Number As String, ByVal Status As InvoiceStatus) As Boolean
    Dim lngRow As Long

    lngRow = RegisterRowFind(Number)
    If lngRow > 0 Then
        shtInvoices.Cells(lngRow, rcStatus).Value = StatusText(Status)
        InvoiceStatusSet = True
    End If
End Function

' The open amount of all issued invoices that are past their due date.
Public Function OverdueAmount(Optional ByVal AtDate As Date = 0) As Currency
    Dim lngRow As Long
    Dim curSum As Currency

    If AtDate = 0 Then AtDate = Date
    With shtInvoices
        For lngRow = 2 To .Cells(.Rows.Count, rcNumber).End(xlUp).Row
            If .Cells(lngRow, rcStatus).Value = StatusText(isIssued) _
                    And .Cells(lngRow, rcDueDate).Value < AtDate Then
                curSum = curSum + .Cells(lngRow, rcGross).Value
            End If
        Next lngRow
    End With
    OverdueAmount = curSum
End Function

' The word for a status, as the register shows it.
Public Function StatusText(ByVal Status As InvoiceStatus) As String
    Select Case Status
        Case isDraft
            StatusText = "Draft"
        Case isIssued
            StatusText = "Issued"
        Case isPaid
            StatusText = "Paid"
        Case isCancelled
            StatusText = "Cancelled"
        Case Else
            StatusText = "Unknown"
    End Select
End Function

' The status of a word of the register; an unknown word counts as a draft.
Public Function StatusFromText(ByVal Text As String) As InvoiceStatus
    Select Case LCase$(Trim$(Text))
        Case "issued"
            StatusFromText = isIssued
        Case "paid"
            StatusFromText = isPaid
        Case "cancelled"
            StatusFromText = isCancelled
        Case Else
            StatusFromText = isDraft
    End Select
End Function

' The row of an invoice number in the register, 0 when it is not there.
Private Function RegisterRowFind(ByVal Number As String) As Long
    Dim rngFound As Range

    If Len(Number) = 0 Then Exit Function
    Set rngFound = shtInvoices.Columns(rcNumber).Find(What:=Number, LookIn:=xlValues, _
        LookAt:=xlWhole, MatchCase:=False)
    If Not rngFound Is Nothing Then RegisterRowFind = rngFound.Row
End Function
