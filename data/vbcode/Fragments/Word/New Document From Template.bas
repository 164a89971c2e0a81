Set {DOCUMENT:Document} = Documents.Add(Template:={STRING:TemplatePath}, Visible:=True)
<cursor>
