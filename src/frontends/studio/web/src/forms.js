// Every dialog drawn from its form's self-description: the controls of every kind at the
// positions and sizes the form gives, captions with access keys, the engine's focus. The
// keys that mean something to a form (Enter, Escape, Tab) go to the engine, which knows the
// default and cancel buttons and the tab order.
import { el, captionNode, plainCaption, px, entryText, cssColour } from './dom.js';
import { act } from './api.js';
import { drawRichText } from './rich_text.js';
import { unplaced, flowInto } from './form_layout.js';
import { makeSplitter } from './splitter.js';

const inputKinds = new Set(['TextBox', 'ComboBox', 'RichTextBox']);

// An editable combo box completes what the user types as the engine's box does: each
// key goes to the engine, which types it or completes an entry, and the box shows the
// text and selection the engine comes back with.
function typedByKeys(input, c, send) {
  input.dataset.engineTyped = '1';
  input.addEventListener('keydown', (e) => {
    if (e.ctrlKey || e.altKey || e.metaKey) return;
    const key = e.key.length === 1 ? { keyAscii: e.key.charCodeAt(0) }
      : e.key === 'Backspace' ? { keyAscii: 8 } : e.key === 'Delete' ? { keyCode: 46 } : null;
    if (!key) return;
    e.preventDefault();
    // The caret the user moved reaches the engine first; while keys are on their way the
    // box shows the engine's older state, so its caret is not the user's.
    const start = input.selectionStart, length = input.selectionEnd - input.selectionStart;
    const moved = start !== Number(input.dataset.selStart) || length !== Number(input.dataset.selLength);
    if (!input.dataset.awaiting && moved) send({ caret: { control: c.name, start, length } });
    input.dataset.awaiting = '1';
    send({ key: { control: c.name, ...key } });
  });
}

export class Forms {
  constructor(parent) {
    this.layer = el('div', { class: 'forms' });
    parent.append(this.layer);
    this.shown = new Map();  // form name -> {text, root}
    this.pending = 0;        // sets on their way: the form is not redrawn under the typing
    this.sent = new Map();   // "form.control" -> the text last sent from a box
    this.awaited = 0;        // the revision the last action led to
    this.lastRevision = 0;
    document.addEventListener('keydown', (e) => this.onKey(e), true);
  }

  send(form, action) {
    this.pending++;
    return act({ do: 'form', form, ...action }).then((reply) => {
      if (reply && reply.revision) this.awaited = Math.max(this.awaited, reply.revision);
    }).finally(() => {
      this.pending--;
      // The state the last action led to is drawn once it is here; an older one would
      // undo what the user did since.
      if (!this.pending && this.lastForms && this.lastRevision >= this.awaited) this.update(this.lastForms, this.lastRevision);
    });
  }

  update(forms, revision) {
    this.lastForms = forms;
    this.lastRevision = revision;
    if (this.pending || revision < this.awaited) return;
    const names = new Set(forms.map((f) => f.form));
    for (const [name, shown] of this.shown)
      if (!names.has(name)) {
        shown.root.remove();
        this.shown.delete(name);
      }
    forms.forEach((f, i) => {
      const old = this.shown.get(f.form);
      const typing = old && old.root.contains(document.activeElement) && document.activeElement.closest('.ctl');
      const name = typing ? typing.dataset.name : null;
      if (old && this.signature(old.desc, name) === this.signature(f, name)) {
        // Only what the user is typing or where the focus stands changed: the form stays
        // as drawn, so no keystroke is lost; the focus follows the engine's.
        old.desc = f;
        if (f.topModal || !forms.some((g) => g.topModal)) this.focusActive(f, old.root, true);
        // A box typed key by key shows what the engine made of the keys.
        const keyed = typing && typing.querySelector('input[data-engine-typed]');
        const c = keyed && f.controls.find((x) => x.name === name);
        if (c && !this.pending) {
          keyed.value = c.text || '';
          keyed.dataset.selStart = c.selStart;
          keyed.dataset.selLength = c.selLength;
          keyed.setSelectionRange(c.selStart, c.selStart + c.selLength);
          delete keyed.dataset.awaiting;
        }
        return;
      }
      const field = typing && typing.matches('input,textarea') ? typing : null;
      const typed = field ? { value: field.value, start: field.selectionStart, end: field.selectionEnd } : null;
      // In a rich text box being typed in, the caret stays where the user has it.
      const richCaret = typing && typing.currentSelection ? typing.currentSelection() : null;
      const root = this.drawForm(f, i);
      if (old) old.root.replaceWith(root);
      else this.layer.append(root);
      this.shown.set(f.form, { root, desc: f });
      if (f.topModal || !forms.some((g) => g.topModal)) this.focusActive(f, root);
      const rich = richCaret && root.querySelector(`.ctl[data-name="${CSS.escape(name)}"]`);
      if (rich && document.activeElement === rich) rich.showSelection(richCaret.start, richCaret.length);
      if (typed) {
        // What the user typed ahead of the engine stays in the box; a text the engine
        // wrote itself replaces it.
        const c = f.controls.find((x) => x.name === name);
        const box = root.querySelector(`.ctl[data-name="${CSS.escape(name)}"]`);
        const engineWrote = !this.pending && c && c.text !== this.sent.get(f.form + '.' + name);
        if (box && box.matches('input,textarea') && !engineWrote) {
          box.value = typed.value;
          if (document.activeElement === box) box.setSelectionRange(typed.start, typed.end);
        }
      }
    });
    this.place(forms);
  }

  // The first form stands where the page puts it (a modal one in the middle); the forms
  // the engine places after it, such as the pop-ups at a text box's caret, keep their
  // place relative to it, as on the screen the engine measures.
  place(forms) {
    let offset = null;
    for (const f of forms) {
      const shown = this.shown.get(f.form);
      if (!shown) continue;
      const win = shown.root.firstChild;
      if (offset === null) {
        const r = win.getBoundingClientRect();
        offset = { x: r.left - f.left / 15, y: r.top - f.top / 15 };
        continue;
      }
      if (!(f.left > 0 || f.top > 0)) continue;
      shown.root.classList.add('placed');
      win.style.left = Math.round(f.left / 15 + offset.x) + 'px';
      win.style.top = Math.round(f.top / 15 + offset.y) + 'px';
    }
  }

  // The form's description without what the page shows by itself: the focus, and the
  // text and caret of the control being typed in.
  signature(f, typing) {
    return JSON.stringify({ ...f, activeControl: undefined,
      controls: f.controls.map((c) => (c.name === typing ? { ...c, text: undefined, selStart: undefined, selLength: undefined } : c)) });
  }

  // The top form that takes the keyboard: the modal one, else the last shown.
  current() {
    let cur = null;
    for (const s of this.shown.values()) if (!cur || s.desc.topModal) cur = s;
    return cur;
  }

  drawForm(f, order) {
    const win = el('div', { class: 'form' + (f.modal ? ' modal' : ''), role: 'dialog', 'aria-label': f.caption,
                            'data-form': f.form });
    win.style.width = px(f.width);
    win.style.height = px(f.height);
    const title = el('div', { class: 'title' }, el('span', { text: f.caption }),
                     el('button', { class: 'close', type: 'button', 'aria-label': 'Close', text: '\u00D7',
                                    onclick: () => this.send(f.form, { close: true }) }));
    const body = el('div', { class: 'fbody' });
    win.append(title, body);
    const boxes = new Map();
    const menus = f.controls.filter((c) => c.kind === 'Menu');
    const drawn = f.controls.filter((c) => c.kind !== 'Timer' && c.kind !== 'Menu');
    const inside = new Map();  // container name ('' for the form) -> its controls
    for (const c of drawn) {
      const e = this.drawControl(f, c);
      e.classList.add('ctl', 'k-' + c.kind);
      e.dataset.name = c.name;
      e.style.left = px(c.left);
      e.style.top = px(c.top);
      e.style.width = px(c.width);
      e.style.height = px(c.height);
      if (!c.visible) e.hidden = true;
      if (c.toolTip) e.title = c.toolTip;
      makeSplitter(e, c, (action) => this.send(f.form, action));
      boxes.set(c.name, e);
      const parent = c.container && boxes.get(c.container);
      (parent ? parent.querySelector(':scope > .inner') || parent : body).append(e);
      const key = parent ? c.container : '';
      if (!inside.has(key)) inside.set(key, []);
      inside.get(key).push(c);
      const popup = menus.find((m) => m.popupFor === c.name);
      if (popup && c.enabled) e.addEventListener('contextmenu', (ev) => this.popupMenu(ev, f, popup, menus));
    }
    for (const [key, controls] of inside) {
      if (!unplaced(controls)) continue;
      const holder = key ? boxes.get(key) : body;
      flowInto(holder.querySelector(':scope > .inner') || holder, controls, boxes, el);
      if (!key) win.classList.add('flowing');
    }
    const holder = el('div', { class: f.modal ? 'modal-shade' : 'modeless' }, win);
    holder.style.zIndex = String(10 + order * 2);
    return holder;
  }

  drawControl(f, c) {
    const send = (action) => this.send(f.form, action);
    const set = (value) => send({ set: { [c.name]: value } });
    const disabled = !c.enabled;
    switch (c.kind) {
      case 'Label': {
        const { node, key } = captionNode(c.caption || '');
        return el('div', { 'data-key': key }, node);
      }
      case 'CommandButton': {
        const { node, key } = captionNode(c.caption || '');
        const b = el('button', { type: 'button', 'data-key': key }, node);
        b.disabled = disabled;
        if (c.default) b.classList.add('default');
        b.addEventListener('click', () => send({ click: c.name }));
        return b;
      }
      case 'CheckBox':
      case 'OptionButton': {
        const input = el('input', { type: c.kind === 'CheckBox' ? 'checkbox' : 'radio' });
        input.checked = c.kind === 'CheckBox' ? c.value === 1 : !!c.value;
        input.indeterminate = c.value === 2;
        input.disabled = disabled;
        input.addEventListener('click', (e) => {
          e.preventDefault();
          send({ click: c.name });
        });
        const { node, key } = captionNode(c.caption || '');
        const label = el('label', { 'data-key': key }, input, node);
        return label;
      }
      case 'RichTextBox': {
        const box = drawRichText(c, (start, length) => send({ caret: { control: c.name, start, length } }), (text) => {
          this.sent.set(f.form + '.' + c.name, text);
          set(text);
        });
        box.addEventListener('focus', () => this.focusFromUser(f, c));
        box.dataset.selStart = c.selStart;
        box.dataset.selLength = c.selLength;
        return box;
      }
      case 'TextBox': {
        const multi = c.multiLine;
        const input = multi ? el('textarea') : el('input', { type: 'text' });
        input.value = c.text || '';
        input.disabled = disabled;
        input.readOnly = !!c.locked;
        input.addEventListener('input', () => {
          this.sent.set(f.form + '.' + c.name, input.value);
          set(input.value);
        });
        input.addEventListener('focus', () => this.focusFromUser(f, c));
        input.dataset.selStart = c.selStart;
        input.dataset.selLength = c.selLength;
        return input;
      }
      case 'ComboBox': {
        const wrap = el('div');
        if (c.style === 2) {
          // A drop-down list: the entries are chosen, never typed.
          const select = el('select');
          for (const item of c.list || []) select.append(el('option', { value: entryText(item), text: entryText(item) }));
          select.value = c.text || '';
          select.disabled = disabled;
          select.addEventListener('change', () => set(select.value));
          select.addEventListener('focus', () => this.focusFromUser(f, c));
          wrap.append(select);
          return wrap;
        }
        const input = el('input', { type: 'text', list: 'dl-' + f.form + '-' + c.name });
        input.value = c.text || '';
        input.disabled = disabled;
        input.dataset.selStart = c.selStart;
        input.dataset.selLength = c.selLength;
        const list = el('datalist', { id: 'dl-' + f.form + '-' + c.name });
        for (const item of c.list || []) list.append(el('option', { value: entryText(item) }));
        typedByKeys(input, c, send);
        // An entry picked from the list with the mouse is chosen at once.
        input.addEventListener('input', (e) => {
          if (e.inputType === 'insertReplacementText' || e.inputType === undefined) set(input.value);
        });
        input.addEventListener('change', () => set(input.value));
        input.addEventListener('focus', () => this.focusFromUser(f, c));
        wrap.append(input, list);
        return wrap;
      }
      case 'ListBox': {
        const select = el('select', { size: '2' });
        select.multiple = Array.isArray(c.selected);
        (c.list || []).forEach((item, i) => {
          const o = el('option', { value: String(i), text: entryText(item) });
          o.selected = select.multiple ? !!c.selected[i] : c.listIndex === i;
          select.append(o);
        });
        select.disabled = disabled;
        select.addEventListener('change', () => {
          if (select.multiple) set([...select.selectedOptions].map((o) => Number(o.value)));
          else set(Number(select.value));
        });
        select.addEventListener('dblclick', () => send({ dblclick: c.name }));
        return select;
      }
      case 'Frame': {
        // The caption sits on the border; the controls inside count from the frame's corner.
        const { node } = captionNode(c.caption || '');
        return el('div', {}, el('div', { class: 'inner' }), c.caption ? el('span', { class: 'legend' }, node) : null);
      }
      case 'PictureBox':
        return el('div', {}, el('div', { class: 'inner' }));
      case 'Image':
        return el('div', { class: 'image' });
      case 'TabStrip': {
        const strip = el('div', { role: 'tablist' });
        (c.tabs || []).forEach((t, i) => {
          const { node } = captionNode(t.caption);
          const b = el('button', { type: 'button', role: 'tab', class: c.value === i + 1 ? 'on' : '' }, node);
          b.disabled = disabled;
          b.addEventListener('click', () => send({ tab: { [c.name]: i + 1 } }));
          strip.append(b);
        });
        return strip;
      }
      case 'TreeView': {
        const tree = el('div', { role: 'tree' });
        const draw = (nodes, parent, depth) => {
          for (const n of nodes) {
            const row = el('div', { role: 'treeitem', class: 'node' + (n.selected ? ' on' : ''), text: n.text });
            row.style.paddingLeft = depth * 14 + 'px';
            if (n.bold) row.style.fontWeight = 'bold';
            row.addEventListener('click', () => send({ node: { [c.name]: n.key } }));
            row.addEventListener('contextmenu', () => {
              if (!n.selected) send({ node: { [c.name]: n.key } });
            });
            row.addEventListener('dblclick', () => send({ dblclick: c.name }));
            parent.append(row);
            if (n.expanded && n.children) draw(n.children, parent, depth + 1);
          }
        };
        draw(c.nodes || [], tree, 0);
        return tree;
      }
      case 'ListView': {
        const table = el('table');
        if (c.columns && c.columns.length)
          table.append(el('thead', {}, el('tr', {}, ...c.columns.map((col) => el('th', { text: col.text })))));
        const body = el('tbody');
        for (const item of c.items || []) {
          const first = el('td', { text: item.text });
          if (item.foreColor !== undefined && item.foreColor >= 0) first.style.color = cssColour(item.foreColor);
          if (c.editing !== undefined && c.editing === (item.key || item.text)) {
            // The label open for editing: Enter gives the new text, Escape keeps the old one.
            const input = el('input', { type: 'text', value: item.text, class: 'label-edit' });
            input.addEventListener('keydown', (e) => {
              if (e.key === 'Enter' || e.key === 'Escape') {
                e.preventDefault();
                e.stopPropagation();
                send({ label: { [c.name]: e.key === 'Enter' ? input.value : item.text } });
              }
            });
            first.textContent = '';
            first.append(input);
            setTimeout(() => input.select(), 0);
          }
          const tr = el('tr', { class: item.selected ? 'on' : '' }, first,
                        ...(item.subItems || []).map((s) => el('td', { text: s })));
          tr.addEventListener('click', () => send({ item: { [c.name]: item.key || item.text } }));
          // A right click chooses the item under the mouse before its pop-up menu opens.
          tr.addEventListener('contextmenu', () => {
            if (!item.selected) send({ item: { [c.name]: item.key || item.text } });
          });
          tr.addEventListener('dblclick', () => send({ dblclick: c.name }));
          body.append(tr);
        }
        table.append(body);
        return el('div', {}, table);
      }
      case 'Toolbar': {
        const bar = el('div');
        for (const b of c.buttons || []) {
          if (!b.visible) continue;
          const button = el('button', { type: 'button', title: b.toolTip || '', text: plainCaption(b.caption || b.key) });
          button.disabled = disabled || !b.enabled;
          button.addEventListener('click', () => send({ item: { [c.name]: b.key || b.caption } }));
          bar.append(button);
        }
        return bar;
      }
      default:
        return el('div', { text: c.kind });
    }
  }

  // A pop-up menu of the form at the mouse: its entries, a click on one is the user's choice.
  popupMenu(ev, f, popup, menus) {
    ev.preventDefault();
    document.querySelectorAll('.popup-menu').forEach((m) => m.remove());
    const list = el('div', { class: 'popup-menu', role: 'menu' });
    for (const entry of menus.filter((m) => m.menu === popup.name && m.visible)) {
      const b = el('button', { type: 'button', role: 'menuitem', text: plainCaption(entry.caption || entry.name) });
      b.disabled = !entry.enabled;
      b.addEventListener('click', () => {
        list.remove();
        this.send(f.form, { click: entry.name });
      });
      list.append(b);
    }
    list.style.left = ev.clientX + 'px';
    list.style.top = ev.clientY + 'px';
    document.body.append(list);
    const close = (e) => {
      if (!list.contains(e.target)) list.remove();
      if (!list.isConnected) document.removeEventListener('mousedown', close, true);
    };
    document.addEventListener('mousedown', close, true);
  }

  focusFromUser(f, c) {
    if (f.activeControl !== c.name) this.send(f.form, { focus: c.name });
  }

  focusActive(f, root, onlyIfMoved = false) {
    if (!f.activeControl) return;
    const box = root.querySelector(`.ctl[data-name="${CSS.escape(f.activeControl)}"]`);
    if (!box) return;
    if (onlyIfMoved && box.contains(document.activeElement)) return;
    const target = box.matches('input,textarea,select,button,.rich') ? box : box.querySelector('input,textarea,select,button');
    if (!target) return;
    target.focus({ preventScroll: true });
    if (target.showSelection) target.showSelection(Number(target.dataset.selStart || 0), Number(target.dataset.selLength || 0));
    if (target.dataset.selStart !== undefined && target.setSelectionRange) {
      const s = Number(target.dataset.selStart), n = Number(target.dataset.selLength);
      try { target.setSelectionRange(s, s + n); } catch (e) { /* not a text field */ }
    }
  }

  onKey(e) {
    const cur = this.current();
    if (!cur) return;
    const f = cur.desc;
    if (!f.modal && !cur.root.contains(document.activeElement)) return;
    // A list view label being edited takes its own Enter and Escape.
    if (e.target && e.target.classList && e.target.classList.contains('label-edit')) return;
    const control = f.activeControl || (f.controls.find((c) => c.visible && c.enabled && c.kind !== 'Label') || {}).name;
    const multi = e.target && e.target.tagName === 'TEXTAREA';
    let keyAscii = 0;
    if (e.key === 'Enter' && !multi) keyAscii = 13;
    else if (e.key === 'Escape') keyAscii = 27;
    else if (e.key === 'Tab' && !e.shiftKey) keyAscii = 9;
    if (keyAscii && control) {
      e.preventDefault();
      e.stopPropagation();
      // The value being typed reaches the engine first.
      const t = e.target;
      if (t && t.closest && t.closest('.ctl') && t.tagName === 'INPUT' && t.list) t.dispatchEvent(new Event('change'));
      this.send(f.form, { key: { control, keyAscii } });
      return;
    }
    if (e.altKey && e.key.length === 1) {
      // Access keys: a labelled control or button of the form.
      const hit = [...cur.root.querySelectorAll('[data-key]')].find((b) => b.dataset.key === e.key.toLowerCase());
      if (hit) {
        e.preventDefault();
        e.stopPropagation();
        const box = hit.closest('.ctl');
        if (hit.tagName === 'BUTTON' || hit.tagName === 'LABEL') {
          this.send(f.form, { click: box.dataset.name });
        } else {
          // A label's key moves to the control after it in the tab order.
          const names = f.controls.map((c) => c.name);
          const next = f.controls.slice(names.indexOf(box.dataset.name) + 1).find((c) => c.kind !== 'Label' && c.visible);
          if (next) this.send(f.form, { focus: next.name });
        }
      }
    }
  }
}
