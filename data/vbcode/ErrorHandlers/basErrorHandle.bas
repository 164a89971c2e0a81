Attribute VB_Name = "{MODULENAME}"
{MODULEHEADER}
Option Explicit

' Central error reporting for the project {PROJECTNAME}.
' Every procedure whose error handler calls {PROCEDURENAME} ends up here: the error is
' written to the Immediate window and to a log file in the temporary folder, and shown
' to the user in a message box.

Private Const mcstrTitle As String = "{PROJECTNAME}"
Private Const mcstrLogFile As String = "{PROJECTNAME}_errors.log"

' Reports an error that a procedure trapped.
' ErrorObject: the Err object of the failing procedure.
' LineNumber:  Erl, 0 when the procedure has no line numbers.
' Location:    where it happened, such as "basMain.Run".
Public Sub {PROCEDURENAME}(ByVal ErrorObject As ErrObject, ByVal LineNumber As Long, _
        ByVal Location As String)
    Dim strMessage As String

    ' Take the text first: any later On Error statement clears the Err object.
    strMessage = Location
    If LineNumber > 0 Then strMessage = strMessage & " (line " & LineNumber & ")"
    strMessage = strMessage & " -> " & ErrorObject.Number & ": " & ErrorObject.Description

    Debug.Print Format$(Now, "yyyy-mm-dd hh:nn:ss") & " " & strMessage
    LogWrite strMessage
    MsgBox strMessage, vbExclamation + vbOKOnly, mcstrTitle
End Sub

' Appends one line to the error log. A log that cannot be written is passed over:
' reporting an error must never raise one of its own.
Private Sub LogWrite(ByVal Message As String)
    Dim intFile As Integer

    On Error Resume Next
    intFile = FreeFile
    Open Environ$("TEMP") & "\" & mcstrLogFile For Append As #intFile
    If Err.Number = 0 Then
        Print #intFile, Format$(Now, "yyyy-mm-dd hh:nn:ss") & vbTab & Message
        Close #intFile
    End If
End Sub
