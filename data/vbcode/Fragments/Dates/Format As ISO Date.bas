{STRING:Text} = Format$({DATE:Day}, "yyyy-mm-dd")<cursor>
