For Each {VARIANT:Item} In {COLLECTION:Items}
    <cursor>
Next {VARIANT:Item}
