Application.DisplayAlerts = False
{WORKBOOK:Book}.SaveAs Filename:={STRING:Path}, FileFormat:=xlOpenXMLWorkbookMacroEnabled
Application.DisplayAlerts = True
<cursor>
