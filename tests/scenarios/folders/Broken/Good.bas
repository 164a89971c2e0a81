Attribute VB_Name = "Good"
Sub B()
End Sub
