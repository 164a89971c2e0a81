Do While {BOOLEAN:Condition}
    <cursor>
Loop
