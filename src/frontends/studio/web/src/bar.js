// The add-in's command bar and its menus, drawn from the engine's description: captions
// with access keys, pictures, group lines, and the visible and enabled states the engine
// gives as the caret moves. A click names the control by its path.
import { el, captionNode } from './dom.js';
import { act } from './api.js';

const BUTTON = 1, DROPDOWN = 3, COMBO = 4, POPUP = 10;
const STYLE_ICON = 1, STYLE_CAPTION = 2;

export class CommandBar {
  constructor(parent) {
    this.root = el('div', { class: 'bar', role: 'menubar', 'aria-label': 'Quillet' });
    parent.append(this.root);
    this.desc = null;
    this.open = [];  // the path of the open menus
    document.addEventListener('keydown', (e) => this.onKey(e), true);
    document.addEventListener('mousedown', (e) => {
      if (!this.root.contains(e.target)) this.close();
    });
  }

  update(desc) {
    this.desc = desc;
    this.render();
  }

  close() {
    if (!this.open.length) return;
    this.open = [];
    this.render();
  }

  click(control) {
    this.open = [];
    this.render();
    act({ do: 'click', path: control.path });
  }

  picture(control) {
    if (!control.picture) return null;
    return el('img', { class: 'pic', src: `/pictures/${control.picture}.bmp`, alt: '' });
  }

  render() {
    this.root.replaceChildren();
    const d = this.desc;
    if (!d || !d.visible) return;
    this.root.classList.toggle('disabled', !d.enabled);
    for (const c of d.controls) {
      if (!c.visible) continue;
      if (c.beginGroup) this.root.append(el('span', { class: 'sep' }));
      this.root.append(this.topControl(c, d.enabled));
    }
  }

  topControl(c, barEnabled) {
    const enabled = barEnabled && c.enabled;
    const { node, key } = captionNode(c.caption);
    if (c.type === DROPDOWN || c.type === COMBO) {
      const select = el('select', { 'aria-label': c.caption.replace(/&/g, ''), title: c.toolTip || '' });
      select.append(el('option', { value: '', text: c.text || '' }));
      for (const item of c.list) select.append(el('option', { value: item, text: item }));
      select.disabled = !enabled;
      select.addEventListener('change', () => {
        if (select.value) act({ do: 'click', path: c.path, text: select.value });
      });
      return select;
    }
    const b = el('button', { class: 'barbtn', type: 'button', title: c.toolTip || '', 'data-key': key,
                             'aria-label': c.caption.replace(/&(.)/g, '$1') });
    b.disabled = !enabled;
    const pic = c.style !== STYLE_CAPTION ? this.picture(c) : null;
    if (pic) b.append(pic);
    if (c.style !== STYLE_ICON || !pic || c.type === POPUP) b.append(node);
    if (c.type === POPUP) {
      b.setAttribute('aria-haspopup', 'menu');
      b.addEventListener('click', () => {
        this.open = this.open[0] === c.path[0] ? [] : [c.path[0]];
        this.render();
      });
      const wrap = el('span', { class: 'menuwrap' }, b);
      if (this.open[0] === c.path[0]) wrap.append(this.menu(c, 1));
      return wrap;
    }
    b.addEventListener('click', () => this.click(c));
    return b;
  }

  menu(popup, depth) {
    const m = el('div', { class: 'menu', role: 'menu' });
    for (const c of popup.controls || []) {
      if (!c.visible) continue;
      if (c.beginGroup && m.childElementCount) m.append(el('div', { class: 'msep' }));
      const { node, key } = captionNode(c.caption);
      const item = el('button', { class: 'mitem', type: 'button', role: 'menuitem', 'data-key': key, title: c.toolTip || '' });
      item.disabled = !c.enabled;
      item.append(el('span', { class: 'micon' }, this.picture(c)), node);
      if (c.type === POPUP) {
        item.append(el('span', { class: 'arrow', text: '\u25B8' }));
        const open = this.open[depth] === c.path[depth];
        item.addEventListener('click', () => {
          this.open = this.open.slice(0, depth).concat(open ? [] : [c.path[depth]]);
          this.render();
        });
        const wrap = el('div', { class: 'subwrap' }, item);
        if (open) wrap.append(this.menu(c, depth + 1));
        m.append(wrap);
      } else {
        item.addEventListener('click', () => this.click(c));
        m.append(item);
      }
    }
    return m;
  }

  // The innermost open menu's element.
  openMenu() {
    const menus = this.root.querySelectorAll('.menu');
    return menus.length ? menus[menus.length - 1] : null;
  }

  onKey(e) {
    if (document.querySelector('.modal-shade')) return;
    const menu = this.openMenu();
    if (menu && !e.altKey && !e.ctrlKey) {
      if (e.key === 'Escape') {
        this.open.pop();
        this.render();
      } else if (e.key.length === 1) {
        const hit = [...menu.querySelectorAll(':scope > .mitem, :scope > .subwrap > .mitem')]
          .find((b) => b.dataset.key === e.key.toLowerCase() && !b.disabled);
        if (hit) hit.click();
      } else {
        return;
      }
      e.preventDefault();
      e.stopPropagation();
      return;
    }
    if (e.altKey && e.key.length === 1) {
      const hit = [...this.root.querySelectorAll(':scope > .barbtn, :scope > .menuwrap > .barbtn')]
        .find((b) => b.dataset.key === e.key.toLowerCase() && !b.disabled);
      if (hit) {
        e.preventDefault();
        e.stopPropagation();
        hit.click();
      }
    }
  }
}
