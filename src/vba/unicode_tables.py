# Writes unicode_tables.cpp beside this file: letter ranges and simple case mappings
# from the Unicode database of the Python that runs it (python3 unicode_tables.py).
import os
import unicodedata as u
MAX = 0x10FFFF
def cat(c): return u.category(chr(c))

def simple_upper(c):
    ch = chr(c); up = ch.upper()
    if len(up) == 1: return ord(up)
    t = ch.title()
    if len(t) == 1: return ord(t)
    return c
def simple_lower(c):
    if c == 0x130: return 0x69
    lo = chr(c).lower()
    assert len(lo) == 1, hex(c)
    return ord(lo)

# Letters, merged across unassigned code points.
letters = []
start = None; last = None
for c in range(MAX + 1):
    k = cat(c)
    if k.startswith('L'):
        if start is None: start = c
        last = c
    elif k == 'Cn':  # unassigned: bridges two letter ranges
        continue
    else:
        if start is not None: letters.append((start, last)); start = None
if start is not None: letters.append((start, last))

def runs_of(mapping):
    keys = sorted(mapping)
    runs = []
    for c in keys:
        d = mapping[c] - c
        if runs:
            lo, hi, delta, step = runs[-1]
            if delta == d:
                if c == hi + 1 and step in (0, 1):
                    runs[-1] = [lo, c, d, 1]; continue
                if c == hi + 2 and step in (0, 2) and (hi + 1) not in mapping:
                    runs[-1] = [lo, c, d, 2]; continue
        runs.append([c, c, d, 0])
    for r in runs:
        if r[3] == 0: r[3] = 1
    # verify
    import bisect
    los = [r[0] for r in runs]
    for c in range(MAX + 1):
        i = bisect.bisect_right(los, c) - 1
        got = c
        if i >= 0:
            lo, hi, d, st = runs[i]
            if c <= hi and (c - lo) % st == 0: got = c + d
        assert got == mapping.get(c, c), hex(c)
    return runs

upper = {c: simple_upper(c) for c in range(MAX + 1) if simple_upper(c) != c and not (0xD800 <= c <= 0xDFFF)}
lower = {c: simple_lower(c) for c in range(MAX + 1) if not (0xD800 <= c <= 0xDFFF) and simple_lower(c) != c}
ur = runs_of(upper); lr = runs_of(lower)

def emit_ranges(name, rs, per):
    out = [f"const Range {name}[] = {{"]
    line = "   "
    for i, (a, b) in enumerate(rs):
        item = f" {{0x{a:04X}, 0x{b:04X}}},"
        if len(line) + len(item) > 100:
            out.append(line); line = "   "
        line += item
    out.append(line); out.append("};")
    return out
def emit_runs(name, rs):
    out = [f"const CaseRun {name}[] = {{"]
    line = "   "
    for a, b, d, st in rs:
        item = f" {{0x{a:04X}, 0x{b:04X}, {d}, {st}}},"
        if len(line) + len(item) > 100:
            out.append(line); line = "   "
        line += item
    out.append(line); out.append("};")
    return out

lines = []
lines.append('#include "vba/unicode_tables.h"')
lines.append('')
lines.append('// Generated from the Unicode Character Database ' + u.unidata_version + '. Letters are the')
lines.append('// general categories Lu, Ll, Lt, Lm and Lo (a range may span unassigned code points);')
lines.append('// the case tables hold the simple (one character to one character) mappings.')
lines.append('namespace quillet::vba::unicode {')
lines.append('')
lines += emit_ranges('kLetters', letters, 6)
lines.append('')
lines += emit_runs('kToUpper', ur)
lines.append('')
lines += emit_runs('kToLower', lr)
lines.append('')
lines.append('const std::span<const Range> kLetterRanges(kLetters);')
lines.append('const std::span<const CaseRun> kUpperRuns(kToUpper);')
lines.append('const std::span<const CaseRun> kLowerRuns(kToLower);')
lines.append('')
lines.append('}  // namespace quillet::vba::unicode')
open(os.path.join(os.path.dirname(os.path.abspath(__file__)), 'unicode_tables.cpp'), 'w').write('\n'.join(lines) + '\n')
print(len(letters), len(ur), len(lr))
