Attribute VB_Name = "basCustomers"
'==============================================================================
' Module:    basCustomers
' Purpose:   The customers of the Customers sheet, read once into a dictionary
'            and read again after the sheet changes.
'==============================================================================
Option Explicit

' Customers by id; Nothing until the first lookup, and again after a change.
Private mdicCustomers As Scripting.Dictionary

' The columns of the Customers sheet.
Private Const mclngColId As Long = 1
Private Const mclngColName As Long = 2
Private Const mclngColStreet As Long = 3
Private Const mclngColCity As Long = 4
Private Const mclngColEmail As Long = 5

' Finds a customer by id; Nothing when the id is unknown.
Public Function CustomerFind(ByVal Id As String) As clsCustomer
    If mdicCustomers Is Nothing Then CustomersLoad
    If mdicCustomers.Exists(Id) Then Set CustomerFind = mdicCustomers(Id)
End Function

' "Id - Name" of every customer, for a combo box; an empty array when there
' are none.
Public Function CustomerNames() As Variant
    Dim varNames() As Variant
    Dim varId As Variant
    Dim lngIndex As Long

    If mdicCustomers Is Nothing Then CustomersLoad
    If mdicCustomers.Count = 0 Then
        CustomerNames = Array()
        Exit Function
    End If

    ReDim varNames(0 To mdicCustomers.Count - 1)
    For Each varId In mdicCustomers.Keys
        varNames(lngIndex) = varId & " - " & mdicCustomers(varId).Name
        lngIndex = lngIndex + 1
    Next varId
    CustomerNames = varNames
End Function

' Forgets what was read, so that the next lookup reads the sheet again.
Public Sub CustomersReset()
    Set mdicCustomers = Nothing
End Sub

' Reads every customer of the sheet. A row without an id is passed over, and
' of two rows with the same id the first one counts.
Public Sub CustomersLoad()
    Dim objCustomer As clsCustomer
    Dim lngRow As Long
    Dim strId As String

    Set mdicCustomers = New Scripting.Dictionary
    mdicCustomers.CompareMode = TextCompare

    With shtCustomers
        For lngRow = 2 To .Cells(.Rows.Count, mclngColId).End(xlUp).Row
            strId = Trim$(CStr(.Cells(lngRow, mclngColId).Value))
            If Len(strId) > 0 And Not mdicCustomers.Exists(strId) Then
                Set objCustomer = New clsCustomer
                objCustomer.Id = strId
                objCustomer.Name = .Cells(lngRow, mclngColName).Value
                objCustomer.Street = .Cells(lngRow, mclngColStreet).Value
                objCustomer.City = .Cells(lngRow, mclngColCity).Value
                objCustomer.Email = .Cells(lngRow, mclngColEmail).Value
                mdicCustomers.Add strId, objCustomer
            End If
        Next lngRow
    End With
End Sub
