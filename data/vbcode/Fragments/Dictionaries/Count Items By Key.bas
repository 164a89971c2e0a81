Set {DICTIONARY:Counts} = New Scripting.Dictionary
{DICTIONARY:Counts}.CompareMode = TextCompare
For Each {VARIANT:Item} In {VARIANT:Items}
    {DICTIONARY:Counts}({VARIANT:Item}) = {DICTIONARY:Counts}({VARIANT:Item}) + 1
Next {VARIANT:Item}
<cursor>
