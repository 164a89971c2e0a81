// The studio's page: the project tree, the command bar, the code pane, the Immediate
// window, and the dialogs and boxes above them, all redrawn from the engine's state.
import { el } from './dom.js';
import { act, onError, watchState } from './api.js';
import { CodePane } from './code_pane.js';
import { CommandBar } from './bar.js';
import { Forms } from './forms.js';
import { Boxes } from './boxes.js';
import { drawTree } from './tree.js';

function start() {
  const nonce = document.querySelector('meta[name="csp-nonce"]').content;
  const app = document.getElementById('app');
  app.replaceChildren();

  const saveButton = el('button', { type: 'button', class: 'save', text: 'Save' });
  const status = el('span', { class: 'status', role: 'status' });
  const top = el('div', { class: 'top' }, el('span', { class: 'brand', text: 'Quillet' }), saveButton, status);
  const barHolder = el('div', { class: 'barholder' });
  const tree = el('nav', { class: 'tree', 'aria-label': 'Project' });
  const codeTitle = el('div', { class: 'codetitle' });
  const codeHolder = el('div', { class: 'code' });
  const immediateText = el('pre', { class: 'immtext', tabindex: '0', 'aria-label': 'Immediate' });
  const immediate = el('section', { class: 'immediate' }, el('div', { class: 'paneltitle', text: 'Immediate' }), immediateText);
  const main = el('div', { class: 'main' }, tree, el('section', { class: 'editor' }, codeTitle, codeHolder), immediate);
  app.append(top, barHolder, main);

  const bar = new CommandBar(barHolder);
  const pane = new CodePane(codeHolder, nonce);
  const forms = new Forms(document.body);
  const boxes = new Boxes(document.body);
  let dirty = false;
  let lastNotice = null;
  let state = null;

  saveButton.addEventListener('click', async () => {
    const reply = await act({ do: 'save' });
    if (reply.ok) status.textContent = 'Saved';
  });
  document.addEventListener('keydown', (e) => {
    if (e.ctrlKey && e.key === 's') {
      e.preventDefault();
      saveButton.click();
    }
  });
  // Typing in the Immediate window goes to the engine's window.
  immediateText.addEventListener('keydown', (e) => {
    if (e.ctrlKey || e.altKey) return;
    let key = null;
    if (e.key === 'Enter') key = { name: 'ENTER' };
    else if (e.key === 'Backspace') key = { name: 'BACKSPACE' };
    else if (e.key.length === 1) key = { ch: e.key };
    if (!key) return;
    e.preventDefault();
    act({ do: 'keys', target: 'immediate', keys: [key] });
  });
  window.addEventListener('beforeunload', (e) => {
    if (dirty) {
      e.preventDefault();
      e.returnValue = '';
    }
  });
  onError((message) => {
    status.textContent = message;
    status.classList.add('warn');
  });

  watchState((s) => {
    state = s;
    document.body.dataset.revision = s.revision;
    dirty = s.projects.some((p) => p.dirty);
    saveButton.disabled = !dirty;
    saveButton.textContent = dirty ? 'Save *' : 'Save';
    document.title = (dirty ? '* ' : '') + 'Quillet studio';
    if (dirty) {
      status.textContent = 'Unsaved changes';
      status.classList.remove('warn');
    }
    const notice = s.notices[s.notices.length - 1];
    if (notice && notice.id !== lastNotice) {
      lastNotice = notice.id;
      status.textContent = (notice.kind === 'shellOpen' ? 'Opened ' : notice.kind + ': ') + notice.text;
    }
    drawTree(tree, s.projects, s.active);
    codeTitle.textContent = s.active ? `${s.active.project} - ${s.active.component} (Code)` : '';
    pane.show(s.active);
    bar.update(s.bar);
    immediateText.textContent = s.immediate;
    immediateText.scrollTop = immediateText.scrollHeight;
    forms.update(s.forms, s.revision);
    boxes.update(s.ask);
    if (!s.forms.length && !s.ask && !document.activeElement.closest('.immediate,.bar')) pane.focus();
  });
  return () => state;
}

if (document.readyState === 'loading') document.addEventListener('DOMContentLoaded', start);
else start();
