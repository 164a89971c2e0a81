{DOCUMENT:Document}.Content.InsertParagraphAfter
{DOCUMENT:Document}.Content.InsertAfter {STRING:Text}<cursor>
