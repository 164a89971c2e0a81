' Writing to a bookmark's range removes the bookmark, so it is added again around the text.
If {DOCUMENT:Document}.Bookmarks.Exists({STRING:BookmarkName}) Then
    Set {RANGE:Target} = {DOCUMENT:Document}.Bookmarks({STRING:BookmarkName}).Range
    {RANGE:Target}.Text = {STRING:Text}
    {DOCUMENT:Document}.Bookmarks.Add {STRING:BookmarkName}, {RANGE:Target}
End If
<cursor>
