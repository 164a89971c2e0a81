// Forms whose controls carry no places of their own (every one left at the container's
// corner) are still usable: the page sets them out in the order the form made them, a
// label beside the control it names, buttons side by side, anything else across the
// width.

const notPlaced = (c) => !c.left && !c.top;

// True when the controls of one container (two or more) all stand at its corner.
export function unplaced(controls) {
  return controls.length > 1 && controls.every(notPlaced);
}

const pairsWithLabel = new Set(['TextBox', 'ComboBox', 'ListBox', 'RichTextBox']);

// The rows of a container: {label, control} pairs, {buttons: [...]} runs of command
// buttons, and {wide} for the rest; every entry is a control's name.
export function flowRows(controls) {
  const rows = [];
  for (let i = 0; i < controls.length; i++) {
    const c = controls[i];
    const next = controls[i + 1];
    if (c.kind === 'Label' && next && pairsWithLabel.has(next.kind)) {
      rows.push({ label: c.name, control: next.name });
      i++;
    } else if (c.kind === 'CommandButton') {
      const last = rows[rows.length - 1];
      if (last && last.buttons) last.buttons.push(c.name);
      else rows.push({ buttons: [c.name] });
    } else {
      rows.push({ wide: c.name });
    }
  }
  return rows;
}

// Sets out the drawn controls (`boxes`: name -> element) of a container element.
export function flowInto(container, controls, boxes, el) {
  container.classList.add('flow');
  for (const row of flowRows(controls)) {
    const take = (name) => {
      const e = boxes.get(name);
      e.classList.add('flowed');
      return e;
    };
    if (row.label) {
      container.append(take(row.label), take(row.control));
    } else if (row.buttons) {
      const line = el('div', { class: 'btnrow' }, ...row.buttons.map(take));
      line.hidden = row.buttons.every((n) => boxes.get(n).hidden);
      container.append(line);
    } else {
      const e = take(row.wide);
      e.classList.add('wide');
      container.append(e);
    }
  }
}
