'==============================================================================
' Module:    {MODULENAME}
' Purpose:   {DESCRIPTION}
' Author:    {AUTHOR}, {COMPANYNAME}
' Created:   {DATE}
' Copyright: {COPYRIGHT}
'==============================================================================
