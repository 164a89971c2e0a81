' TODO ({INITIALS}, {DATE}): <cursor>
