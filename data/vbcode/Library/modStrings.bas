Attribute VB_Name = "modStrings"
'==============================================================================
' Module:    modStrings
' Purpose:   Tests and conversions of text that VBA does not offer on its own.
'            Every procedure stands alone, so that one can be copied into a
'            project without the others.
'==============================================================================
Option Explicit

Public Function StringStartsWith(ByVal Text As String, ByVal Start As String) As Boolean
'------------------------------------------------------------------------------
' Purpose: Whether Text begins with Start, without regard to case.
' Example: StringStartsWith("Invoice 12", "invoice") returns True.
'------------------------------------------------------------------------------
    StringStartsWith = (StrComp(Left$(Text, Len(Start)), Start, vbTextCompare) = 0)
End Function

Public Function StringEndsWith(ByVal Text As String, ByVal Ending As String) As Boolean
'------------------------------------------------------------------------------
' Purpose: Whether Text ends with Ending, without regard to case.
' Example: StringEndsWith("Report.xlsx", ".XLSX") returns True.
'------------------------------------------------------------------------------
    StringEndsWith = (StrComp(Right$(Text, Len(Ending)), Ending, vbTextCompare) = 0)
End Function

Public Function StringContains(ByVal Text As String, ByVal Part As String, _
        Optional ByVal MatchCase As Boolean = False) As Boolean
'------------------------------------------------------------------------------
' Purpose: Whether Part stands anywhere in Text.
'------------------------------------------------------------------------------
    If MatchCase Then
        StringContains = (InStr(1, Text, Part, vbBinaryCompare) > 0)
    Else
        StringContains = (InStr(1, Text, Part, vbTextCompare) > 0)
    End If
End Function

Public Function StringCountOf(ByVal Text As String, ByVal Part As String) As Long
'------------------------------------------------------------------------------
' Purpose: How often Part occurs in Text (without overlapping), by case.
' Example: StringCountOf("a;b;c", ";") returns 2.
'------------------------------------------------------------------------------
    If Len(Part) = 0 Then Exit Function
    StringCountOf = (Len(Text) - Len(Replace(Text, Part, vbNullString))) \ Len(Part)
End Function

Public Function StringPadLeft(ByVal Text As String, ByVal Width As Long, _
        Optional ByVal Fill As String = " ") As String
'------------------------------------------------------------------------------
' Purpose: Text made Width characters wide by filling on the left; longer
'          text is returned as it is.
' Example: StringPadLeft("42", 5, "0") returns "00042".
'------------------------------------------------------------------------------
    If Len(Text) >= Width Or Len(Fill) = 0 Then
        StringPadLeft = Text
    Else
        StringPadLeft = String$(Width - Len(Text), Left$(Fill, 1)) & Text
    End If
End Function

Public Function StringPadRight(ByVal Text As String, ByVal Width As Long, _
        Optional ByVal Fill As String = " ") As String
'------------------------------------------------------------------------------
' Purpose: Text made Width characters wide by filling on the right; longer
'          text is returned as it is.
'------------------------------------------------------------------------------
    If Len(Text) >= Width Or Len(Fill) = 0 Then
        StringPadRight = Text
    Else
        StringPadRight = Text & String$(Width - Len(Text), Left$(Fill, 1))
    End If
End Function

Public Function StringBetween(ByVal Text As String, ByVal Before As String, _
        ByVal After As String) As String
'------------------------------------------------------------------------------
' Purpose: The text between the first Before and the next After; empty when
'          either is missing.
' Example: StringBetween("Total: [12.50] EUR", "[", "]") returns "12.50".
'------------------------------------------------------------------------------
    Dim lngStart As Long
    Dim lngFinish As Long

    lngStart = InStr(1, Text, Before, vbTextCompare)
    If lngStart = 0 Then Exit Function
    lngStart = lngStart + Len(Before)
    lngFinish = InStr(lngStart, Text, After, vbTextCompare)
    If lngFinish > 0 Then StringBetween = Mid$(Text, lngStart, lngFinish - lngStart)
End Function

Public Function StringRemoveChars(ByVal Text As String, ByVal Chars As String) As String
'------------------------------------------------------------------------------
' Purpose: Text without any of the characters in Chars.
' Example: StringRemoveChars("(0049) 30-123", "()- ") returns "004930123".
'------------------------------------------------------------------------------
    Dim lngIndex As Long

    For lngIndex = 1 To Len(Chars)
        Text = Replace(Text, Mid$(Chars, lngIndex, 1), vbNullString)
    Next lngIndex
    StringRemoveChars = Text
End Function

Public Function StringCollapseBlanks(ByVal Text As String) As String
'------------------------------------------------------------------------------
' Purpose: Text trimmed, with every run of blanks, tabs and line breaks inside
'          it turned into a single blank.
'------------------------------------------------------------------------------
    Text = Replace(Replace(Replace(Text, vbCr, " "), vbLf, " "), vbTab, " ")
    Do While InStr(Text, "  ") > 0
        Text = Replace(Text, "  ", " ")
    Loop
    StringCollapseBlanks = Trim$(Text)
End Function

Public Function StringFormat(ByVal Template As String, ParamArray Values() As Variant) As String
'------------------------------------------------------------------------------
' Purpose: Template with %1, %2 ... replaced by the values in their order.
' Example: StringFormat("Invoice %1 of %2", 12, "Garden Shop") returns
'          "Invoice 12 of Garden Shop".
'------------------------------------------------------------------------------
    Dim lngIndex As Long

    ' From the last to the first, so that %1 does not eat the start of %10.
    For lngIndex = UBound(Values) To LBound(Values) Step -1
        Template = Replace(Template, "%" & (lngIndex - LBound(Values) + 1), CStr(Values(lngIndex)))
    Next lngIndex
    StringFormat = Template
End Function

Public Function StringSqlQuote(ByVal Value As String) As String
'------------------------------------------------------------------------------
' Purpose: Value as an SQL text literal: in single quotes, inner quotes doubled.
' Example: StringSqlQuote("Baker's") returns 'Baker''s'.
'------------------------------------------------------------------------------
    StringSqlQuote = "'" & Replace(Value, "'", "''") & "'"
End Function

Public Function StringWordCount(ByVal Text As String) As Long
'------------------------------------------------------------------------------
' Purpose: The number of words, words being separated by blanks, tabs or
'          line breaks.
'------------------------------------------------------------------------------
    Text = Replace(Replace(Replace(Text, vbCr, " "), vbLf, " "), vbTab, " ")
    Do While InStr(Text, "  ") > 0
        Text = Replace(Text, "  ", " ")
    Loop
    Text = Trim$(Text)
    If Len(Text) > 0 Then StringWordCount = UBound(Split(Text, " ")) + 1
End Function
