{STRING:Stamp} = Format$(Now, "yyyymmdd_hhnnss")<cursor>
