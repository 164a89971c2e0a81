Set {REGEXP:Pattern} = New VBScript_RegExp_55.RegExp
With {REGEXP:Pattern}
    .Pattern = "\s+"
    .Global = True
    {STRING:Result} = .Replace({STRING:Text}, " ")
End With
<cursor>
