{DATE:FirstDay} = DateSerial(Year({DATE:Day}), Month({DATE:Day}), 1)<cursor>
