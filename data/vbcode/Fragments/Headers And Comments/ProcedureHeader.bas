'------------------------------------------------------------------------------
' Procedure: {PROCEDURENAME}
' Purpose:   {DESCRIPTION}
' Author:    {AUTHOR}, {DATE}
' Changes:   {DATE} {INITIALS} created
'------------------------------------------------------------------------------
