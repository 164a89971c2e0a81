// A small VBA language for the code pane: keywords, types, strings, comments, numbers,
// dates, line labels and compiler directives, token by token.
import { StreamLanguage, HighlightStyle, syntaxHighlighting } from '@codemirror/language';
import { tags } from '@lezer/highlight';

const keywords = new Set(
  ('and as byref byval call case const declare dim do each else elseif end enum erase error event exit ' +
   'explicit false for friend function get global gosub goto if implements in is let lib like loop me ' +
   'mod new next not nothing null on option optional or paramarray preserve private property public ' +
   'raiseevent redim resume return select set static step stop sub then to true type typeof until wend ' +
   'while with withevents xor compare binary text base module attribute addressof eqv imp empty')
    .split(' '));
const types = new Set(
  'boolean byte currency date decimal double integer long longlong longptr object single string variant any'
    .split(' '));

export const vbaLanguage = StreamLanguage.define({
  name: 'vba',
  startState: () => ({}),
  token(stream) {
    if (stream.eatSpace()) return null;
    if (stream.sol() && stream.match(/^#\w+/)) return 'meta';
    if (stream.match(/^'/) || stream.match(/^rem\b/i)) {
      stream.skipToEnd();
      return 'comment';
    }
    if (stream.match(/^"([^"]|"")*"?/)) return 'string';
    if (stream.match(/^#[^#\n]+#/)) return 'string';
    if (stream.match(/^&[hH][0-9a-fA-F]+&?/) || stream.match(/^&[oO][0-7]+&?/)) return 'number';
    if (stream.match(/^\d+(\.\d*)?([eE][+-]?\d+)?[%&!#@^]?/) || stream.match(/^\.\d+/)) return 'number';
    if (stream.match(/^[A-Za-z_][A-Za-z0-9_]*[$%&!#@]?/)) {
      const word = stream.current().replace(/[$%&!#@]$/, '').toLowerCase();
      if (stream.start === 0 && stream.peek() === ':' && !keywords.has(word)) return 'labelName';
      if (keywords.has(word)) return 'keyword';
      if (types.has(word)) return 'typeName';
      return 'variableName';
    }
    stream.next();
    return 'operator';
  },
  languageData: { commentTokens: { line: "'" } },
});

export const vbaHighlight = syntaxHighlighting(HighlightStyle.define([
  { tag: tags.keyword, color: '#00007f' },
  { tag: tags.typeName, color: '#00007f' },
  { tag: tags.comment, color: '#007f00' },
  { tag: tags.string, color: '#7f0000' },
  { tag: tags.number, color: '#7f007f' },
  { tag: tags.meta, color: '#7f7f00' },
  { tag: tags.labelName, color: '#7f3f00' },
]));
