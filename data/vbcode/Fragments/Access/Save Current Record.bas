If Me.Dirty Then Me.Dirty = False
<cursor>
