// What the engine asks: message boxes with their icon and buttons, input boxes, and the
// open, save and folder pickers, which browse the server's folders that the studio allows.
import { el } from './dom.js';
import { act, listFolder } from './api.js';

const icons = { 16: ['\u2716', 'critical'], 32: ['?', 'question'], 48: ['!', 'exclamation'], 64: ['i', 'information'] };

export class Boxes {
  constructor(parent) {
    this.layer = el('div', { class: 'boxes' });
    parent.append(this.layer);
    this.askId = null;
  }

  update(ask) {
    if (ask && ask.id === this.askId) return;
    this.layer.replaceChildren();
    this.askId = ask ? ask.id : null;
    if (!ask) return;
    const draw = { msgbox: this.msgBox, inputbox: this.inputBox, open: this.picker, save: this.picker, folder: this.picker };
    this.layer.append(el('div', { class: 'modal-shade box-shade' }, draw[ask.kind].call(this, ask)));
    const focus = this.layer.querySelector('[autofocus]') || this.layer.querySelector('button');
    if (focus) focus.focus();
  }

  answer(value) {
    act({ do: 'answer', value });
  }

  frame(title, ...content) {
    return el('div', { class: 'form box', role: 'dialog', 'aria-label': title || 'Quillet' },
              el('div', { class: 'title' }, el('span', { text: title || 'Quillet' })), el('div', { class: 'boxbody' }, ...content));
  }

  msgBox(ask) {
    const icon = icons[ask.style & 112];
    const buttons = el('div', { class: 'buttons' });
    const defaultIndex = (ask.style & 768) >> 8;
    ask.buttons.forEach((name, i) => {
      const b = el('button', { type: 'button', text: name, onclick: () => this.answer(name) });
      if (i === defaultIndex) b.setAttribute('autofocus', '');
      buttons.append(b);
    });
    const box = this.frame(ask.title,
      el('div', { class: 'msg' }, icon ? el('span', { class: 'icon ' + icon[1], text: icon[0] }) : null,
         el('div', { class: 'prompt', text: ask.prompt })), buttons);
    box.addEventListener('keydown', (e) => {
      if (e.key === 'Escape') {
        const cancel = ask.buttons.includes('Cancel') ? 'Cancel' : ask.buttons.length === 1 ? ask.buttons[0] : null;
        if (cancel) this.answer(cancel);
      }
    });
    return box;
  }

  inputBox(ask) {
    const input = el('input', { type: 'text', autofocus: '', 'aria-label': ask.prompt });
    input.value = ask.default || '';
    const ok = () => this.answer(input.value);
    const cancel = () => this.answer(null);
    input.addEventListener('keydown', (e) => {
      if (e.key === 'Enter') ok();
      if (e.key === 'Escape') cancel();
    });
    return this.frame(ask.title, el('div', { class: 'prompt', text: ask.prompt }), input,
      el('div', { class: 'buttons' }, el('button', { type: 'button', text: 'OK', onclick: ok }),
         el('button', { type: 'button', text: 'Cancel', onclick: cancel })));
  }

  picker(ask) {
    const list = el('div', { class: 'files', role: 'listbox' });
    const where = el('div', { class: 'where' });
    const name = el('input', { type: 'text', 'aria-label': 'File name' });
    name.value = ask.kind === 'save' ? (ask.fileName || '').split('\\').pop() : '';
    const error = el('div', { class: 'error' });
    let folder = ask.folder;
    const join = (f, n) => (f.endsWith('\\') ? f + n : f + '\\' + n);
    const filterOf = (ask.filters || [])[Math.max(0, (ask.filterIndex || 1) - 1)];
    const patterns = filterOf ? filterOf.pattern.split(';').map((p) => new RegExp('^' +
      p.replace(/[.+^${}()|[\]\\]/g, '\\$&').replace(/\*/g, '.*').replace(/\?/g, '.') + '$', 'i')) : [/.*/];
    const open = async (f) => {
      try {
        const listing = await listFolder(f);
        folder = listing.folder;
        where.textContent = folder;
        list.replaceChildren();
        if (listing.parent) list.append(el('div', { class: 'entry dir', text: '..', ondblclick: () => open(listing.parent) }));
        for (const e of listing.entries) {
          if (!e.folder && (ask.kind === 'folder' || !patterns.some((p) => p.test(e.name)))) continue;
          const row = el('div', { class: 'entry' + (e.folder ? ' dir' : ''), role: 'option', text: e.name });
          row.addEventListener('click', () => {
            for (const r of list.children) r.classList.remove('on');
            row.classList.add('on');
            if (!e.folder) name.value = e.name;
          });
          row.addEventListener('dblclick', () => (e.folder ? open(join(folder, e.name)) : choose()));
          list.append(row);
        }
        error.textContent = '';
      } catch (e) {
        error.textContent = e.message;
      }
    };
    const choose = async () => {
      const path = ask.kind === 'folder' ? folder : name.value ? join(folder, name.value) : '';
      if (!path) return;
      const reply = await act({ do: 'answer', value: path });
      if (reply && reply.ok === false) error.textContent = reply.error;
    };
    open(folder);
    const buttons = el('div', { class: 'buttons' },
      el('button', { type: 'button', text: ask.kind === 'save' ? 'Save' : ask.kind === 'folder' ? 'Select Folder' : 'Open', onclick: choose }),
      el('button', { type: 'button', text: 'Cancel', onclick: () => this.answer(null) }));
    const box = this.frame(ask.title || (ask.kind === 'folder' ? 'Browse for Folder' : 'Open'), where, list,
                           ask.kind === 'folder' ? null : name, error, buttons);
    box.classList.add('picker');
    box.addEventListener('keydown', (e) => {
      if (e.key === 'Escape') this.answer(null);
      if (e.key === 'Enter' && e.target === name) choose();
    });
    return box;
  }
}
