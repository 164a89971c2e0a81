// The code pane: CodeMirror shows the module and its caret, but the text and the caret
// belong to the engine. Keystrokes and caret moves go to the studio; what comes back is
// drawn. The pane never edits on its own.
import { EditorState, EditorSelection, Annotation } from '@codemirror/state';
import { EditorView, lineNumbers, highlightActiveLine, drawSelection } from '@codemirror/view';
import { vbaLanguage, vbaHighlight } from './vba_mode.js';
import { act } from './api.js';

const fromEngine = Annotation.define();

// The engine's names of the keys the pane passes on.
const namedKeys = {
  Enter: 'ENTER', Backspace: 'BACKSPACE', Delete: 'DELETE', Tab: 'TAB', ArrowUp: 'UP', ArrowDown: 'DOWN',
  ArrowLeft: 'LEFT', ArrowRight: 'RIGHT', Home: 'HOME', End: 'END', PageUp: 'PGUP', PageDown: 'PGDN',
};

export class CodePane {
  constructor(parent, nonce) {
    this.shown = null;  // {project, component}
    this.view = new EditorView({
      parent,
      state: EditorState.create({
        doc: '',
        extensions: [
          lineNumbers(), highlightActiveLine(), drawSelection(), vbaLanguage, vbaHighlight,
          EditorState.readOnly.of(true),
          EditorView.cspNonce.of(nonce),
          EditorView.contentAttributes.of({ 'aria-label': 'Code', spellcheck: 'false' }),
          EditorView.domEventHandlers({
            keydown: (e) => this.onKey(e),
            paste: (e) => {
              e.preventDefault();
              const text = e.clipboardData.getData('text/plain').replace(/\r\n?/g, '\n');
              if (text) act({ do: 'keys', target: 'code', text });
            },
          }),
          EditorView.updateListener.of((u) => this.onUpdate(u)),
        ],
      }),
    });
  }

  onKey(e) {
    if (e.altKey || (e.ctrlKey && !['Home', 'End'].includes(e.key))) return false;  // access keys, browser keys
    let key = null;
    if (namedKeys[e.key]) key = { name: namedKeys[e.key], shift: e.shiftKey, control: e.ctrlKey };
    else if (e.key.length === 1) key = { ch: e.key };
    if (!key) return false;
    e.preventDefault();
    act({ do: 'keys', target: 'code', keys: [key] });
    return true;
  }

  onUpdate(u) {
    if (!u.selectionSet || u.transactions.some((t) => t.annotation(fromEngine))) return;
    if (!u.transactions.some((t) => t.isUserEvent('select'))) return;
    const s = u.state.selection.main;
    const a = this.lineCol(u.state, s.anchor);
    const b = this.lineCol(u.state, s.head);
    act({ do: 'select', selection: [a.line, a.col, b.line, b.col] });
  }

  lineCol(state, pos) {
    const line = state.doc.lineAt(pos);
    return { line: line.number, col: pos - line.from + 1 };
  }

  posOf(state, line, col) {
    const n = Math.max(1, Math.min(line, state.doc.lines));
    const l = state.doc.line(n);
    return l.from + Math.max(0, Math.min(col - 1, l.length));
  }

  // Draws the engine's module and selection.
  show(active) {
    const view = this.view;
    const text = active ? active.lines.join('\n') : '';
    const changes = text !== view.state.doc.toString() ? { from: 0, to: view.state.doc.length, insert: text } : undefined;
    const doc = changes ? view.state.update({ changes }).state : view.state;
    let selection;
    if (active) {
      const [l1, c1, l2, c2] = active.selection;
      selection = EditorSelection.single(this.posOf(doc, l1, c1), this.posOf(doc, l2, c2));
    }
    view.dispatch({ changes, selection, annotations: fromEngine.of(true), scrollIntoView: true });
    this.shown = active ? { project: active.project, component: active.component } : null;
  }

  focus() {
    this.view.focus();
  }
}
