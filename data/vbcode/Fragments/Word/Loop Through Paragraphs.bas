For Each {PARAGRAPH:Paragraph} In {DOCUMENT:Document}.Paragraphs
    {STRING:Text} = {PARAGRAPH:Paragraph}.Range.Text
    <cursor>
Next {PARAGRAPH:Paragraph}
