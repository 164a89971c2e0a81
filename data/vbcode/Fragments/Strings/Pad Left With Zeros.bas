{STRING:Text} = Right$(String$({LONG:Width}, "0") & CStr({LONG:Number}), {LONG:Width})<cursor>
