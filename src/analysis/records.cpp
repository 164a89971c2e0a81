#include "analysis/records.h"

#include "vba/strings.h"

namespace quillet::analysis {
namespace {

constexpr std::wstring_view kTypeChars = L"!#$%&@";

// The parts every declaration starts with: the name up to the first "(", blank, tab, CR or
// LF, its type character taken off, and the trimmed text behind the name.
struct DeclHead {
  std::wstring name;
  std::wstring typeFromChar;  // the type the name's type character stands for
  std::wstring rest;
};

DeclHead ReadHead(std::wstring_view text) {
  DeclHead h;
  std::wstring s = vba::Trim(text);
  std::size_t end = s.find_first_of(L"( \t\r\n");
  if (end == std::wstring::npos) end = s.size();
  h.name = s.substr(0, end);
  h.rest = vba::Trim(std::wstring_view(s).substr(end));
  if (!h.name.empty() && IsTypeChar(h.name.back())) {
    h.typeFromChar = TypeOfTypeChar(h.name.back());
    h.name.pop_back();
  }
  return h;
}

// The type named behind "As": the word "As" is taken as two characters without being
// looked at, and the type runs to the first "=" or "'".
std::wstring TypeBehindAs(std::wstring_view rest) {
  std::wstring t = vba::Trim(vba::Mid(rest, 3));
  return vba::Trim(std::wstring_view(t).substr(0, t.find_first_of(L"='")));
}

std::wstring FinalType(std::wstring written, const std::wstring& typeFromChar) {
  if (!typeFromChar.empty()) written = typeFromChar;
  return written.empty() ? L"Variant" : written;
}

}  // namespace

bool IsTypeChar(wchar_t c) { return c != 0 && kTypeChars.find(c) != std::wstring_view::npos; }

std::wstring TypeOfTypeChar(wchar_t c) {
  switch (c) {
    case L'!': return L"Single";
    case L'#': return L"Double";
    case L'$': return L"String";
    case L'%': return L"Integer";
    case L'&': return L"Long";
    case L'@': return L"Currency";
    default: return {};
  }
}

void clsVariable::init(std::wstring_view text) {
  DeclHead h = ReadHead(text);
  Name = h.name;
  std::wstring rest = h.rest;
  if (!rest.empty() && rest.front() == L'(') {
    IsArray = true;
    std::size_t close = rest.find(L')');
    if (close == std::wstring::npos) {
      Bounds = rest;
      rest.clear();
    } else {
      Bounds = rest.substr(0, close + 1);
      rest = vba::Trim(std::wstring_view(rest).substr(close + 1));
    }
  }
  Type_ = FinalType(rest.empty() ? std::wstring() : TypeBehindAs(rest), h.typeFromChar);
}

void clsConstant::init(std::wstring_view text) {
  DeclHead h = ReadHead(text);
  Name = h.name;
  std::wstring written;
  const std::wstring& rest = h.rest;
  if (!rest.empty() && rest.front() == L'=') {
    Value = vba::Trim(std::wstring_view(rest).substr(1));
  } else if (!rest.empty()) {
    written = TypeBehindAs(rest);
    std::size_t eq = rest.find(L'=');
    if (eq != std::wstring::npos) Value = vba::Trim(std::wstring_view(rest).substr(eq + 1));
  }
  Type_ = FinalType(written, h.typeFromChar);
}

void clsEnum::Add(std::shared_ptr<clsConstant> member, std::wstring_view key) {
  std::wstring k = key.empty() ? member->EnumName + L"." + member->Name : std::wstring(key);
  RecordList::Add(std::move(member), k);
}

}  // namespace quillet::analysis
