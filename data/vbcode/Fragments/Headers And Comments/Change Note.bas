' {DATE} {INITIALS}: <cursor>
