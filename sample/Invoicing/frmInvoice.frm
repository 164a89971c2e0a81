VERSION 5.00
Begin {C62A69F0-16DC-11CE-9E98-00AA00608C0F} frmInvoice 
   Caption         =   "Invoice"
   ClientHeight    =   5520
   ClientLeft      =   120
   ClientTop       =   465
   ClientWidth     =   7335
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "frmInvoice"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
'==============================================================================
' Form:      frmInvoice
' Purpose:   Edits one invoice: customer, date and lines. Save writes it to the
'            register; Cancel leaves the register as it was.
'==============================================================================
Option Explicit

Private WithEvents mobjInvoice As clsInvoice
Attribute mobjInvoice.VB_VarHelpID = -1
Private mfCancelled As Boolean

' The invoice to edit; set it before the form is shown.
Public Property Set Invoice(ByVal Value As clsInvoice)
    Set mobjInvoice = Value
    InvoiceShow
End Property

Public Property Get Invoice() As clsInvoice
    Set Invoice = mobjInvoice
End Property

' True unless the user saved the invoice.
Public Property Get Cancelled() As Boolean
    Cancelled = mfCancelled
End Property

Private Sub UserForm_Initialize()
    Dim varNames As Variant

    mfCancelled = True
    varNames = CustomerNames()
    If UBound(varNames) >= LBound(varNames) Then cboCustomer.List = varNames
    txtQuantity.Value = "1"
End Sub

' The invoice changed: show the new total.
Private Sub mobjInvoice_Changed()
    TotalShow
End Sub

Private Sub cboCustomer_Change()
    Dim strId As String

    If cboCustomer.ListIndex < 0 Then Exit Sub
    strId = Trim$(Split(cboCustomer.Value, " - ")(0))
    Set mobjInvoice.Customer = CustomerFind(strId)
End Sub

Private Sub txtDate_AfterUpdate()
    If IsDate(txtDate.Value) Then
        mobjInvoice.InvoiceDate = CDate(txtDate.Value)
    Else
        MsgBox "Please type a date.", vbExclamation, Me.Caption
        txtDate.Value = Format$(mobjInvoice.InvoiceDate, "Short Date")
    End If
End Sub

Private Sub cmdAddLine_Click()
    If Len(Trim$(txtDescription.Value)) = 0 Then
        MsgBox "Please describe the line.", vbExclamation, Me.Caption
        txtDescription.SetFocus
        Exit Sub
    End If
    If Not IsNumeric(txtQuantity.Value) Or Not IsNumeric(txtPrice.Value) Then
        MsgBox "Quantity and price must be numbers.", vbExclamation, Me.Caption
        Exit Sub
    End If

    mobjInvoice.AddLine Trim$(txtDescription.Value), CDbl(txtQuantity.Value), _
        CCur(txtPrice.Value)
    LinesShow
    txtDescription.Value = vbNullString
    txtPrice.Value = vbNullString
    txtDescription.SetFocus
End Sub

Private Sub cmdRemoveLine_Click()
    If lstLines.ListIndex >= 0 Then
        mobjInvoice.RemoveLine lstLines.ListIndex + 1
        LinesShow
    End If
End Sub

Private Sub cmdSave_Click()
    If mobjInvoice.Customer Is Nothing Then
        MsgBox "Please choose a customer.", vbExclamation, Me.Caption
        cboCustomer.SetFocus
        Exit Sub
    End If
    If mobjInvoice.Lines.Count = 0 Then
        MsgBox "An invoice needs at least one line.", vbExclamation, Me.Caption
        Exit Sub
    End If

    InvoiceSave mobjInvoice
    mfCancelled = False
    Me.Hide
End Sub

Private Sub cmdCancel_Click()
    If mobjInvoice.IsDirty Then
        If MsgBox("Close without saving?", vbQuestion + vbYesNo, Me.Caption) = vbNo Then Exit Sub
    End If
    Me.Hide
End Sub

' The close box acts as Cancel, so that the form is hidden, not unloaded.
Private Sub UserForm_QueryClose(Cancel As Integer, CloseMode As Integer)
    If CloseMode = vbFormControlMenu Then
        Cancel = True
        cmdCancel_Click
    End If
End Sub

Private Sub InvoiceShow()
    Me.Caption = "Invoice " & mobjInvoice.Number
    txtNumber.Value = mobjInvoice.Number
    txtDate.Value = Format$(mobjInvoice.InvoiceDate, "Short Date")
    If Not mobjInvoice.Customer Is Nothing Then
        cboCustomer.Value = mobjInvoice.Customer.Id & " - " & mobjInvoice.Customer.Name
    End If
    LinesShow
End Sub

Private Sub LinesShow()
    Dim objLine As clsInvoiceLine

    lstLines.Clear
    For Each objLine In mobjInvoice.Lines
        lstLines.AddItem objLine.ToText
    Next objLine
    TotalShow
End Sub

Private Sub TotalShow()
    lblTotal.Caption = "Total: " & Format$(mobjInvoice.Total, "#,##0.00")
End Sub
