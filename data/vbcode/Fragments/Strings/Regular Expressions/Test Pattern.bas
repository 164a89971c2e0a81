Set {REGEXP:Pattern} = New VBScript_RegExp_55.RegExp
With {REGEXP:Pattern}
    .Pattern = "^[A-Z][A-Z][0-9][0-9][0-9][0-9]$"
    .IgnoreCase = True
    {BOOLEAN:Matches} = .Test({STRING:Text})
End With
<cursor>
