Attribute VB_Name = "modArrays"
'==============================================================================
' Module:    modArrays
' Purpose:   Tests and changes of one-dimensional arrays held in Variants.
'            Every procedure stands alone.
'==============================================================================
Option Explicit

Public Function ArrayIsEmpty(ByRef Values As Variant) As Boolean
'------------------------------------------------------------------------------
' Purpose: True when Values is no array, was never dimensioned, or has no
'          elements (as Array() or Split("")).
'------------------------------------------------------------------------------
    ArrayIsEmpty = True
    If Not IsArray(Values) Then Exit Function
    On Error Resume Next
    ArrayIsEmpty = (UBound(Values) < LBound(Values))
End Function

Public Function ArrayCount(ByRef Values As Variant) As Long
'------------------------------------------------------------------------------
' Purpose: The number of elements; 0 for an empty or undimensioned array.
'------------------------------------------------------------------------------
    If Not IsArray(Values) Then Exit Function
    On Error Resume Next
    ArrayCount = UBound(Values) - LBound(Values) + 1
End Function

Public Function ArrayIndexOf(ByRef Values As Variant, ByVal Value As Variant) As Long
'------------------------------------------------------------------------------
' Purpose: The index of the first element equal to Value (texts without regard
'          to case); LBound - 1 when there is none.
'------------------------------------------------------------------------------
    Dim lngIndex As Long

    ArrayIndexOf = LBound(Values) - 1
    For lngIndex = LBound(Values) To UBound(Values)
        If VarType(Values(lngIndex)) = vbString And VarType(Value) = vbString Then
            If StrComp(Values(lngIndex), Value, vbTextCompare) = 0 Then
                ArrayIndexOf = lngIndex
                Exit Function
            End If
        ElseIf Not IsObject(Values(lngIndex)) Then
            If Values(lngIndex) = Value Then
                ArrayIndexOf = lngIndex
                Exit Function
            End If
        End If
    Next lngIndex
End Function

Public Function ArrayContains(ByRef Values As Variant, ByVal Value As Variant) As Boolean
'------------------------------------------------------------------------------
' Purpose: Whether an element equals Value (texts without regard to case).
'------------------------------------------------------------------------------
    Dim varItem As Variant

    For Each varItem In Values
        If VarType(varItem) = vbString And VarType(Value) = vbString Then
            If StrComp(varItem, Value, vbTextCompare) = 0 Then
                ArrayContains = True
                Exit Function
            End If
        ElseIf Not IsObject(varItem) Then
            If varItem = Value Then
                ArrayContains = True
                Exit Function
            End If
        End If
    Next varItem
End Function

Public Sub ArrayAppend(ByRef Values As Variant, ByVal Value As Variant)
'------------------------------------------------------------------------------
' Purpose: Adds Value behind the last element; an empty Variant becomes an
'          array of one element, index 0.
'------------------------------------------------------------------------------
    Dim lngUpper As Long

    If Not IsArray(Values) Then
        ReDim Values(0 To 0)
    Else
        lngUpper = LBound(Values) - 1
        On Error Resume Next
        lngUpper = UBound(Values)
        On Error GoTo 0
        If lngUpper < LBound(Values) Then
            ReDim Values(0 To 0)
        Else
            ReDim Preserve Values(LBound(Values) To lngUpper + 1)
        End If
    End If
    If IsObject(Value) Then
        Set Values(UBound(Values)) = Value
    Else
        Values(UBound(Values)) = Value
    End If
End Sub

Public Sub ArrayReverse(ByRef Values As Variant)
'------------------------------------------------------------------------------
' Purpose: Turns the order of the elements around, in place.
'------------------------------------------------------------------------------
    Dim lngLow As Long
    Dim lngHigh As Long
    Dim varSwap As Variant

    lngLow = LBound(Values)
    lngHigh = UBound(Values)
    Do While lngLow < lngHigh
        varSwap = Values(lngLow)
        Values(lngLow) = Values(lngHigh)
        Values(lngHigh) = varSwap
        lngLow = lngLow + 1
        lngHigh = lngHigh - 1
    Loop
End Sub

Public Sub ArraySort(ByRef Values As Variant, Optional ByVal First As Long = -1, _
        Optional ByVal Last As Long = -1)
'------------------------------------------------------------------------------
' Purpose: Sorts the elements in ascending order, in place (quicksort). Call it
'          with the array alone; First and Last serve the recursion.
' Example: ArraySort varNames
'------------------------------------------------------------------------------
    Dim lngLow As Long
    Dim lngHigh As Long
    Dim varPivot As Variant
    Dim varSwap As Variant

    If First = -1 Then First = LBound(Values)
    If Last = -1 Then Last = UBound(Values)
    If First >= Last Then Exit Sub

    lngLow = First
    lngHigh = Last
    varPivot = Values((First + Last) \ 2)
    Do While lngLow <= lngHigh
        Do While Values(lngLow) < varPivot
            lngLow = lngLow + 1
        Loop
        Do While varPivot < Values(lngHigh)
            lngHigh = lngHigh - 1
        Loop
        If lngLow <= lngHigh Then
            varSwap = Values(lngLow)
            Values(lngLow) = Values(lngHigh)
            Values(lngHigh) = varSwap
            lngLow = lngLow + 1
            lngHigh = lngHigh - 1
        End If
    Loop
    If First < lngHigh Then ArraySort Values, First, lngHigh
    If lngLow < Last Then ArraySort Values, lngLow, Last
End Sub

Public Function ArrayFromCollection(ByVal Items As Collection) As Variant
'------------------------------------------------------------------------------
' Purpose: The items of a collection as an array with indexes 1 to Count;
'          an empty collection gives Array().
'------------------------------------------------------------------------------
    Dim varResult() As Variant
    Dim lngIndex As Long

    If Items.Count = 0 Then
        ArrayFromCollection = Array()
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
    ArrayFromCollection = varResult
End Function
