For Each {CONTROL:Control} In Me.Controls
    Select Case {CONTROL:Control}.ControlType
        Case acTextBox, acComboBox
            <cursor>
        Case acCheckBox

    End Select
Next {CONTROL:Control}
