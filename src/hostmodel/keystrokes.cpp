#include "hostmodel/keystrokes.h"

#include "vba/error.h"
#include "vba/text.h"

namespace quillet::host {
namespace {

// Names the host accepts for the same key.
std::wstring CanonicalName(std::wstring name) {
  name = vba::UCase(name);
  if (name == L"BS" || name == L"BKSP") return L"BACKSPACE";
  if (name == L"DEL") return L"DELETE";
  if (name == L"INS") return L"INSERT";
  if (name == L"ESCAPE") return L"ESC";
  if (name == L"PGDN") return L"PGDN";
  return name;
}

}  // namespace

std::vector<Key> ParseKeys(std::wstring_view keys) {
  std::vector<Key> out;
  bool shift = false, control = false, alt = false;  // pending modifiers
  bool groupShift = false, groupControl = false, groupAlt = false;
  bool inGroup = false;

  auto emit = [&](Key k, int repeat) {
    k.shift = shift || (inGroup && groupShift);
    k.control = control || (inGroup && groupControl);
    k.alt = alt || (inGroup && groupAlt);
    for (int r = 0; r < repeat; ++r) out.push_back(k);
    shift = control = alt = false;
  };

  for (std::size_t i = 0; i < keys.size(); ++i) {
    wchar_t c = keys[i];
    if (c == L'+' ) { shift = true; continue; }
    if (c == L'^') { control = true; continue; }
    if (c == L'%') { alt = true; continue; }
    if (c == L'(') {
      inGroup = true;
      groupShift = shift;
      groupControl = control;
      groupAlt = alt;
      shift = control = alt = false;
      continue;
    }
    if (c == L')' && inGroup) {
      inGroup = false;
      continue;
    }
    if (c == L'~') {
      Key k;
      k.name = L"ENTER";
      emit(k, 1);
      continue;
    }
    if (c == L'{') {
      // "{}}" and "{{}" name the braces themselves.
      std::size_t close = keys.find(L'}', i + 2);
      if (close == std::wstring_view::npos) vba::Raise(vba::kErrInvalidCall, L"Unclosed \"{\" in keystrokes");
      std::wstring_view inner = keys.substr(i + 1, close - i - 1);
      i = close;
      int repeat = 1;
      std::size_t blank = inner.rfind(L' ');
      if (blank != std::wstring_view::npos && blank + 1 < inner.size()) {
        std::wstring_view count = inner.substr(blank + 1);
        bool digits = !count.empty();
        for (wchar_t d : count) digits = digits && vba::IsDigit(d);
        if (digits) {
          repeat = std::stoi(std::wstring(count));
          inner = inner.substr(0, blank);
        }
      }
      Key k;
      if (inner.size() == 1 && !vba::IsLetter(inner[0])) {
        k.ch = inner[0];  // "{+}", "{~}", "{{}"
      } else if (inner.size() == 1) {
        k.ch = inner[0];
      } else {
        k.name = CanonicalName(std::wstring(inner));
      }
      emit(k, repeat);
      continue;
    }
    Key k;
    k.ch = c;
    emit(k, 1);
  }
  return out;
}

}  // namespace quillet::host
