// The page's own logic, without a browser: rich text runs and offsets, forms set out in
// rows, the drag of a splitter as the engine is told it, list entries.
//   node --test page_logic_test.mjs
import { test } from 'node:test';
import assert from 'node:assert/strict';

const web = new URL('../../src/frontends/studio/web/src/', import.meta.url);
const { segments, engineOffset, shownOffset, engineText } = await import(new URL('rich_text.js', web));
const { unplaced, flowRows } = await import(new URL('form_layout.js', web));
const { dragAction, cursors } = await import(new URL('splitter.js', web));
const { entryText, cssColour } = await import(new URL('dom.js', web));

test('rich text runs cover the text once, in order, whatever the runs say', () => {
  const text = 'Dim x As Long';
  // Out of order, overlapping, and one running past the end.
  const runs = [{ start: 9, length: 10, color: 1 }, { start: 0, length: 3, color: 2 }, { start: 2, length: 4, color: 3 }];
  const parts = segments(text, runs);
  assert.equal(parts.map((p) => p.text).join(''), text);
  assert.deepEqual(parts.map((p) => [p.text, p.style && p.style.color]),
                   [['Dim', 2], [' x ', 3], ['As ', null], ['Long', 1]]);
  assert.deepEqual(segments('abc', undefined), [{ text: 'abc', style: null }]);
  assert.deepEqual(segments('', [{ start: 0, length: 2, color: 1 }]), []);
});

test('caret offsets count the CR of each line end as the engine does', () => {
  const text = 'ab\r\ncd\r\n\r\nef';
  // Shown without CR: "ab\ncd\n\nef".
  assert.equal(engineOffset(text, 0), 0);
  assert.equal(engineOffset(text, 3), 4);  // the start of "cd"
  assert.equal(engineOffset(text, 7), 10); // the start of "ef"
  assert.equal(engineOffset(text, 9), 12); // the end
  for (let shown = 0; shown <= 9; shown++) assert.equal(shownOffset(text, engineOffset(text, shown)), shown);
  assert.equal(shownOffset(text, 100), 9);
  assert.equal(engineOffset('abc', 2), 2);
});

test('text typed in a rich text box keeps the line ends of the engine text', () => {
  assert.equal(engineText('a\nb', 'x\r\ny'), 'a\r\nb');
  assert.equal(engineText('a\r\nb\n', 'x\r\ny'), 'a\r\nb\r\n');
  assert.equal(engineText('a\nb', 'x\ny'), 'a\nb');
  assert.equal(engineText('a\nb', ''), 'a\r\nb');
});

test('controls left at the corner are set out in rows: label and box, buttons together, the rest across', () => {
  const c = (name, kind, left = 0, top = 0) => ({ name, kind, left, top });
  const form = [c('lblName', 'Label'), c('txtName', 'TextBox'), c('lblNote', 'Label'), c('lblType', 'Label'),
                c('cboType', 'ComboBox'), c('chkGet', 'CheckBox'), c('lblCmd', 'Label'), c('cmdNew', 'CommandButton'),
                c('cmdDel', 'CommandButton'), c('lvList', 'ListView'), c('cmdOK', 'CommandButton'),
                c('cmdCancel', 'CommandButton'), c('lblLast', 'Label')];
  assert.ok(unplaced(form));
  assert.deepEqual(flowRows(form), [
    { label: 'lblName', control: 'txtName' }, { wide: 'lblNote' }, { label: 'lblType', control: 'cboType' },
    { wide: 'chkGet' }, { wide: 'lblCmd' }, { buttons: ['cmdNew', 'cmdDel'] }, { wide: 'lvList' },
    { buttons: ['cmdOK', 'cmdCancel'] }, { wide: 'lblLast' }]);
  // One control with a place of its own: the form was laid out, the page keeps it.
  assert.ok(!unplaced([...form, c('txtMore', 'TextBox', 120, 0)]));
  assert.ok(!unplaced([c('fraOnly', 'Frame')]));
});

test('a splitter dragged is told to the engine as a drag step in twips', () => {
  assert.deepEqual(dragAction('imgSplitter', 20, 0), { drag: { control: 'imgSplitter', by: [300, 0] } });
  assert.deepEqual(dragAction('picBar', 0, -3.4), { drag: { control: 'picBar', by: [0, -51] } });
  assert.equal(cursors[9], 'ew-resize');
  assert.equal(cursors[7], 'ns-resize');
  assert.equal(cursors[0], undefined);
});

test('list entries and colours as the engine describes them', () => {
  assert.equal(entryText({ text: 'Long', itemData: 3 }), 'Long');
  assert.equal(entryText('Long'), 'Long');
  assert.equal(cssColour(0x800080), 'rgb(128,0,128)');
  assert.equal(cssColour(0x0000ff), 'rgb(255,0,0)');
});
