With {DOCUMENT:Document}.Content.Find
    .ClearFormatting
    .Replacement.ClearFormatting
    .Text = {STRING:FindText}
    .Replacement.Text = {STRING:ReplaceText}
    .Forward = True
    .Wrap = wdFindStop
    .MatchCase = False
    .MatchWholeWord = True
    .Execute Replace:=wdReplaceAll
End With
<cursor>
