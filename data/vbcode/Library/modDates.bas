Attribute VB_Name = "modDates"
'==============================================================================
' Module:    modDates
' Purpose:   Calendar arithmetic: months, working days, weeks and ages.
'            Weeks start on Monday. Every procedure stands alone.
'==============================================================================
Option Explicit

Public Function DateFirstOfMonth(ByVal TheDate As Date) As Date
'------------------------------------------------------------------------------
' Purpose: The first day of the month of TheDate.
'------------------------------------------------------------------------------
    DateFirstOfMonth = DateSerial(Year(TheDate), Month(TheDate), 1)
End Function

Public Function DateLastOfMonth(ByVal TheDate As Date) As Date
'------------------------------------------------------------------------------
' Purpose: The last day of the month of TheDate (day 0 of the next month).
'------------------------------------------------------------------------------
    DateLastOfMonth = DateSerial(Year(TheDate), Month(TheDate) + 1, 0)
End Function

Public Function DateIsWeekend(ByVal TheDate As Date) As Boolean
'------------------------------------------------------------------------------
' Purpose: Whether TheDate is a Saturday or a Sunday.
'------------------------------------------------------------------------------
    DateIsWeekend = (Weekday(TheDate, vbMonday) > 5)
End Function

Public Function DateAddWorkdays(ByVal Start As Date, ByVal Days As Long) As Date
'------------------------------------------------------------------------------
' Purpose: The working day that lies Days working days after Start (before it
'          when Days is negative). Saturdays and Sundays are not counted.
' Example: DateAddWorkdays(#5/31/2024#, 1) returns Monday, 3 June 2024.
'------------------------------------------------------------------------------
    Dim lngStep As Long

    lngStep = IIf(Days < 0, -1, 1)
    Days = Abs(Days)
    Start = Int(Start)
    Do While Days > 0
        Start = Start + lngStep
        If Weekday(Start, vbMonday) <= 5 Then Days = Days - 1
    Loop
    DateAddWorkdays = Start
End Function

Public Function DateWorkdaysBetween(ByVal Start As Date, ByVal Finish As Date) As Long
'------------------------------------------------------------------------------
' Purpose: The number of working days from Start to Finish, both included.
'------------------------------------------------------------------------------
    Dim dtmDay As Date
    Dim lngCount As Long

    For dtmDay = Int(Start) To Int(Finish)
        If Weekday(dtmDay, vbMonday) <= 5 Then lngCount = lngCount + 1
    Next dtmDay
    DateWorkdaysBetween = lngCount
End Function

Public Function DateAgeInYears(ByVal Birthday As Date, Optional ByVal AtDate As Variant) As Integer
'------------------------------------------------------------------------------
' Purpose: The age in whole years on AtDate, today when it is left out.
'------------------------------------------------------------------------------
    Dim dtmAt As Date

    If IsMissing(AtDate) Then dtmAt = Date Else dtmAt = CDate(AtDate)
    DateAgeInYears = DateDiff("yyyy", Birthday, dtmAt)
    If DateSerial(Year(dtmAt), Month(Birthday), Day(Birthday)) > dtmAt Then
        DateAgeInYears = DateAgeInYears - 1
    End If
End Function

Public Function DateIsoWeek(ByVal TheDate As Date) As Integer
'------------------------------------------------------------------------------
' Purpose: The week number by ISO 8601: weeks start on Monday, and week 1 is
'          the week that holds the year's first Thursday.
'------------------------------------------------------------------------------
    Dim dtmThursday As Date

    ' The Thursday of the same week decides the year the week belongs to.
    dtmThursday = Int(TheDate) - Weekday(TheDate, vbMonday) + 4
    DateIsoWeek = (dtmThursday - DateSerial(Year(dtmThursday), 1, 1)) \ 7 + 1
End Function

Public Function DateQuarter(ByVal TheDate As Date) As Integer
'------------------------------------------------------------------------------
' Purpose: The quarter of the year, 1 to 4.
'------------------------------------------------------------------------------
    DateQuarter = (Month(TheDate) - 1) \ 3 + 1
End Function

Public Function DateToIso(ByVal TheDate As Date) As String
'------------------------------------------------------------------------------
' Purpose: TheDate as "yyyy-mm-dd", the same whatever the regional settings.
'------------------------------------------------------------------------------
    DateToIso = Format$(TheDate, "yyyy\-mm\-dd")
End Function

Public Function DateFromIso(ByVal Text As String) As Date
'------------------------------------------------------------------------------
' Purpose: The date of a text "yyyy-mm-dd"; raises error 13 for other text.
'------------------------------------------------------------------------------
    If Not Text Like "####-##-##*" Then Err.Raise 13, "modDates.DateFromIso", "Not a date: " & Text
    DateFromIso = DateSerial(CInt(Left$(Text, 4)), CInt(Mid$(Text, 6, 2)), CInt(Mid$(Text, 9, 2)))
End Function
