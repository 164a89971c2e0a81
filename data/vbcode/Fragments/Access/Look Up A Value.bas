' DLookup returns Null when no record matches.
{VARIANT:Value} = DLookup("[Name]", "[Customers]", "[ID] = " & {LONG:Id})
If IsNull({VARIANT:Value}) Then
    <cursor>
End If
