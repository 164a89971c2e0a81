// A rich text box: its text in the colours and styles of its runs, and the caret read back
// as the engine counts it. The engine's text ends lines with CR LF; the page shows LF only,
// so offsets are mapped both ways.
import { el, cssColour } from './dom.js';

// The stretches of the text, each with its style (null for plain text), in order.
export function segments(text, runs) {
  const out = [];
  let at = 0;
  for (const r of [...(runs || [])].sort((a, b) => a.start - b.start)) {
    const start = Math.max(r.start, at);
    const end = Math.min(r.start + r.length, text.length);
    if (end <= start) continue;
    if (start > at) out.push({ text: text.slice(at, start), style: null });
    out.push({ text: text.slice(start, end), style: r });
    at = end;
  }
  if (at < text.length) out.push({ text: text.slice(at), style: null });
  return out;
}

// The engine's offset of a position in the shown text (no CR), and back.
export function engineOffset(text, shown) {
  let seen = 0;
  for (let i = 0; i < text.length; i++) {
    if (seen === shown) return i;
    if (text[i] !== '\r') seen++;
  }
  return text.length;
}

export function shownOffset(text, engine) {
  let shown = 0;
  for (let i = 0; i < Math.min(engine, text.length); i++) if (text[i] !== '\r') shown++;
  return shown;
}

// The text the user typed, with line ends as the engine's text has them.
export function engineText(shownText, original) {
  const text = shownText.replace(/\r\n?/g, '\n');
  return /\r\n/.test(original) || !/\n/.test(original) ? text.replace(/\n/g, '\r\n') : text;
}

// Draws the box. `caret(start, length)` is called when the user moves the caret or the
// selection, `typed(text)` when the user types (not for a locked box).
export function drawRichText(c, caret, typed) {
  const text = c.text || '';
  const box = el('div', { class: 'rich', tabindex: '0', spellcheck: 'false' });
  for (const s of segments(text, c.runs)) {
    const shown = s.text.replace(/\r/g, '');
    if (!s.style) {
      box.append(shown);
      continue;
    }
    const span = el('span', { text: shown });
    span.style.color = cssColour(s.style.color || 0);
    if (s.style.bold) span.style.fontWeight = 'bold';
    if (s.style.italic) span.style.fontStyle = 'italic';
    if (s.style.underline) span.style.textDecoration = 'underline';
    box.append(span);
  }
  if (!c.locked && c.enabled) box.contentEditable = 'plaintext-only';
  const offsetIn = (node, offset) => {
    // Characters of the box before (node, offset).
    const range = document.createRange();
    range.selectNodeContents(box);
    range.setEnd(node, offset);
    return range.toString().length;
  };
  const current = () => {
    const sel = window.getSelection();
    if (!sel.rangeCount || !box.contains(sel.anchorNode)) return null;
    const a = offsetIn(sel.anchorNode, sel.anchorOffset);
    const b = offsetIn(sel.focusNode, sel.focusOffset);
    const source = box.dataset.typed !== undefined ? box.dataset.typed : text;
    const start = engineOffset(source, Math.min(a, b));
    return { start, length: engineOffset(source, Math.max(a, b)) - start };
  };
  let last = { start: c.selStart || 0, length: c.selLength || 0 };
  const report = () => {
    const now = current();
    if (!now || (now.start === last.start && now.length === last.length)) return;
    last = now;
    caret(now.start, now.length);
  };
  box.addEventListener('mouseup', report);
  box.addEventListener('keyup', (e) => {
    if (!['Enter', 'Escape', 'Tab'].includes(e.key)) report();
  });
  box.addEventListener('input', () => {
    const value = engineText(box.innerText, text);
    box.dataset.typed = value;
    typed(value);
    const now = current();
    if (now) last = now;
  });
  box.currentSelection = current;
  // The engine's selection, shown when the box has the focus.
  box.showSelection = (start, length) => {
    const from = shownOffset(text, start), to = shownOffset(text, start + length);
    const place = (n) => {
      const walker = document.createTreeWalker(box, NodeFilter.SHOW_TEXT);
      let node, left = n;
      while ((node = walker.nextNode())) {
        if (left <= node.length) return [node, left];
        left -= node.length;
      }
      return [box, box.childNodes.length];
    };
    const range = document.createRange();
    range.setStart(...place(from));
    range.setEnd(...place(to));
    const sel = window.getSelection();
    sel.removeAllRanges();
    sel.addRange(range);
    last = { start, length };
  };
  return box;
}
