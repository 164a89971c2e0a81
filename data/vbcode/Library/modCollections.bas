Attribute VB_Name = "modCollections"
'==============================================================================
' Module:    modCollections
' Purpose:   What the Collection object lacks: a key test, a safe lookup,
'            sorting and conversion. Every procedure stands alone.
'==============================================================================
Option Explicit

Public Function CollectionHasKey(ByVal Items As Collection, ByVal Key As String) As Boolean
'------------------------------------------------------------------------------
' Purpose: Whether an item is stored under Key (keys ignore case).
'------------------------------------------------------------------------------
    Dim varItem As Variant

    On Error Resume Next
    If IsObject(Items(Key)) Then
        Set varItem = Items(Key)
    Else
        varItem = Items(Key)
    End If
    CollectionHasKey = (Err.Number = 0)
    Err.Clear
End Function

Public Function CollectionItemOrDefault(ByVal Items As Collection, ByVal Key As String, _
        Optional ByVal Default As Variant) As Variant
'------------------------------------------------------------------------------
' Purpose: The item stored under Key, or Default when there is none.
'------------------------------------------------------------------------------
    On Error GoTo HandleMissing
    If IsObject(Items(Key)) Then
        Set CollectionItemOrDefault = Items(Key)
    Else
        CollectionItemOrDefault = Items(Key)
    End If
    Exit Function

HandleMissing:
    If IsObject(Default) Then
        Set CollectionItemOrDefault = Default
    Else
        CollectionItemOrDefault = Default
    End If
End Function

Public Function CollectionAddUnique(ByVal Items As Collection, ByVal Value As Variant, _
        ByVal Key As String) As Boolean
'------------------------------------------------------------------------------
' Purpose: Adds Value under Key unless the key is taken. True when it was added.
'------------------------------------------------------------------------------
    On Error Resume Next
    Items.Add Value, Key
    CollectionAddUnique = (Err.Number = 0)
    Err.Clear
End Function

Public Sub CollectionClear(ByVal Items As Collection)
'------------------------------------------------------------------------------
' Purpose: Removes every item; other references to the collection see it empty.
'------------------------------------------------------------------------------
    Do While Items.Count > 0
        Items.Remove Items.Count
    Loop
End Sub

Public Function CollectionToArray(ByVal Items As Collection) As Variant
'------------------------------------------------------------------------------
' Purpose: The items as an array with indexes 1 to Count; Array() when empty.
'------------------------------------------------------------------------------
    Dim varResult() As Variant
    Dim lngIndex As Long

    If Items.Count = 0 Then
        CollectionToArray = Array()
        Exit Function
    End If
    ReDim varResult(1 To Items.Count)
    For lngIndex = 1 To Items.Count
        If IsObject(Items(lngIndex)) Then
            Set varResult(lngIndex) = Items(lngIndex)
        Else
            varResult(lngIndex) = Items(lngIndex)
        End If
    Next lngIndex
    CollectionToArray = varResult
End Function

Public Function CollectionSorted(ByVal Items As Collection) As Collection
'------------------------------------------------------------------------------
' Purpose: A new collection with the same values in ascending order (texts
'          without regard to case). Keys are not carried over; for values,
'          not for objects.
'------------------------------------------------------------------------------
    Dim colResult As Collection
    Dim varItem As Variant
    Dim lngIndex As Long
    Dim fPlaced As Boolean

    Set colResult = New Collection
    For Each varItem In Items
        fPlaced = False
        For lngIndex = 1 To colResult.Count
            If StrComp(CStr(varItem), CStr(colResult(lngIndex)), vbTextCompare) < 0 Then
                colResult.Add varItem, Before:=lngIndex
                fPlaced = True
                Exit For
            End If
        Next lngIndex
        If Not fPlaced Then colResult.Add varItem
    Next varItem
    Set CollectionSorted = colResult
End Function

Public Function CollectionJoin(ByVal Items As Collection, Optional ByVal Delimiter As String = ", ") _
        As String
'------------------------------------------------------------------------------
' Purpose: The values of the items joined into one text.
'------------------------------------------------------------------------------
    Dim varItem As Variant
    Dim strResult As String
    Dim fFirst As Boolean

    fFirst = True
    For Each varItem In Items
        If Not fFirst Then strResult = strResult & Delimiter
        strResult = strResult & CStr(varItem)
        fFirst = False
    Next varItem
    CollectionJoin = strResult
End Function
