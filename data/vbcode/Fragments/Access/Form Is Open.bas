{BOOLEAN:IsOpen} = CurrentProject.AllForms({STRING:FormName}).IsLoaded<cursor>
