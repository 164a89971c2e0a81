MsgBox <cursor>"", vbInformation + vbOKOnly, "{PROCEDURENAME}"
