// Splitters: a control whose mouse pointer is the west-east (9) or north-south (7) arrow
// is dragged with the mouse; while it moves the page shows it following, and when the
// button is let go the engine is told how far it went, in twips.

export const cursors = { 7: 'ns-resize', 9: 'ew-resize' };

// The form action of a drag by (dx, dy) pixels.
export function dragAction(control, dx, dy) {
  return { drag: { control, by: [Math.round(dx * 15), Math.round(dy * 15)] } };
}

// Makes the drawn control `e` draggable when its description asks for a resize pointer.
export function makeSplitter(e, c, send) {
  const cursor = cursors[c.mousePointer];
  if (!cursor) return;
  e.style.cursor = cursor;
  e.classList.add('splitter');
  e.addEventListener('pointerdown', (down) => {
    if (down.button !== 0 || !c.enabled) return;
    down.preventDefault();
    // The page may draw the form again while the button is down, putting a new element in
    // place of this one: the drag is followed on the window, so it ends and is sent all the same.
    const along = (ev) => [c.mousePointer === 9 ? ev.clientX - down.clientX : 0,
                           c.mousePointer === 7 ? ev.clientY - down.clientY : 0];
    const move = (ev) => {
      const [dx, dy] = along(ev);
      e.style.transform = `translate(${dx}px, ${dy}px)`;
    };
    const up = (ev) => {
      window.removeEventListener('pointermove', move);
      window.removeEventListener('pointerup', up);
      e.style.transform = '';
      const [dx, dy] = along(ev);
      if (dx || dy) send(dragAction(c.name, dx, dy));
    };
    window.addEventListener('pointermove', move);
    window.addEventListener('pointerup', up);
  });
}
