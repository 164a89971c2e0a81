'==============================================================================
' Class:     {MODULENAME}
' Purpose:   {DESCRIPTION}<cursor>
' Author:    {AUTHOR}, {COMPANYNAME}
' Created:   {DATE}
' Copyright: {COPYRIGHT}
'
' Usage:
'     Dim obj As {MODULENAME}
'     Set obj = New {MODULENAME}
'==============================================================================
