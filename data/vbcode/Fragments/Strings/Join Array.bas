{STRING:Text} = Join({VARIANT:Parts}, ", ")<cursor>
