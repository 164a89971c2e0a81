#include "vba_check.h"

#include <algorithm>
#include <map>
#include <optional>

#include "vba/text.h"

namespace quillet::datacheck {
namespace {

const std::vector<std::wstring> kZoneMarks = {L"<end_of_top>", L"<begin_of_bottom>", L"<BeforeHandleExitLabel>"};
const std::vector<std::wstring> kMarks = {L"<cursor>", L"<end_of_top>", L"<begin_of_bottom>",
                                          L"<BeforeHandleExitLabel>"};

std::wstring At(std::size_t index) { return L"line " + std::to_wstring(index + 1) + L": "; }

std::wstring Trim(std::wstring_view s) {
  std::size_t a = s.find_first_not_of(L' ');
  if (a == std::wstring_view::npos) return {};
  return std::wstring(s.substr(a, s.find_last_not_of(L' ') + 1 - a));
}

bool Continues(const std::wstring& line) {
  std::wstring t = Trim(line);
  return t.size() >= 2 && t.back() == L'_' && t[t.size() - 2] == L' ';
}

// The statements of a logical line: comment cut off, string literals emptied (so that
// their text cannot look like code), split at ":" (not ":=") outside strings.
std::vector<std::wstring> Statements(const std::wstring& logical) {
  std::vector<std::wstring> out;
  std::wstring cur;
  bool inString = false;
  for (std::size_t i = 0; i < logical.size(); ++i) {
    wchar_t c = logical[i];
    if (c == L'"') {
      inString = !inString;
      cur += c;
    } else if (inString) {
      continue;
    } else if (c == L'\'') {
      break;
    } else if (c == L':' && (i + 1 >= logical.size() || logical[i + 1] != L'=')) {
      out.push_back(Trim(cur));
      cur.clear();
    } else {
      cur += c;
    }
  }
  out.push_back(Trim(cur));
  return out;
}

std::vector<std::wstring> Words(const std::wstring& statement) {
  std::vector<std::wstring> words;
  std::wstring cur;
  for (wchar_t c : statement) {
    if (vba::IsIdentifierChar(c) || c == L'#') {
      cur += c;
    } else if (!cur.empty()) {
      words.push_back(vba::UCase(cur));
      cur.clear();
    }
  }
  if (!cur.empty()) words.push_back(vba::UCase(cur));
  return words;
}

bool IsProcedure(const std::wstring& block) { return block == L"SUB" || block == L"FUNCTION" || block == L"PROPERTY"; }

class BlockWalker {
 public:
  void Statement(const std::wstring& text, std::size_t line) {
    line_ = line;
    std::vector<std::wstring> w = Words(text);
    if (w.empty() || w[0] == L"REM") return;
    std::size_t k = 0;
    while (k + 1 < w.size() && (w[k] == L"PUBLIC" || w[k] == L"PRIVATE" || w[k] == L"FRIEND" || w[k] == L"GLOBAL" ||
                                w[k] == L"STATIC"))
      ++k;
    const std::wstring& first = w[k];
    std::wstring second = k + 1 < w.size() ? w[k + 1] : L"";
    bool thenLast = w.back() == L"THEN";
    bool hasThen = std::find(w.begin(), w.end(), L"THEN") != w.end();

    if (first == L"SUB" || first == L"FUNCTION" ||
        (first == L"PROPERTY" && (second == L"GET" || second == L"LET" || second == L"SET"))) {
      if (!stack_.empty()) Problem(L"a procedure begins inside " + stack_.back().first);
      Open(first);
    } else if (first == L"ENUM" || first == L"TYPE") {
      if (!stack_.empty()) Problem(L"an " + first + L" block begins inside " + stack_.back().first);
      Open(first);
    } else if (first == L"END" && k + 1 < w.size()) {
      Close(second == L"IF" ? L"IF" : second);
    } else if (first == L"#END") {
      Close(L"#IF");
    } else if (first == L"IF" || first == L"#IF") {
      if (!hasThen) Problem(L"If without Then");
      else if (thenLast) Open(first);
    } else if (first == L"ELSEIF" || first == L"#ELSEIF") {
      Expect(first == L"ELSEIF" ? L"IF" : L"#IF", first);
      if (!thenLast) Problem(L"ElseIf without Then at its end");
    } else if (first == L"ELSE" || first == L"#ELSE") {
      Expect(first == L"ELSE" ? L"IF" : L"#IF", first);
    } else if (first == L"SELECT") {
      Open(L"SELECT");
    } else if (first == L"CASE") {
      Expect(L"SELECT", L"Case");
    } else if (first == L"FOR") {
      Open(L"FOR");
    } else if (first == L"NEXT") {
      std::size_t counters = 1 + std::count(text.begin(), text.end(), L',');
      for (std::size_t n = 0; n < counters; ++n) Close(L"FOR", L"NEXT");
    } else if (first == L"DO") {
      Open(L"DO");
    } else if (first == L"LOOP") {
      Close(L"DO", L"LOOP");
    } else if (first == L"WHILE") {
      Open(L"WHILE");
    } else if (first == L"WEND") {
      Close(L"WHILE", L"WEND");
    } else if (first == L"WITH") {
      Open(L"WITH");
    } else if (first == L"EXIT" && k + 1 < w.size()) {
      ExitCheck(second);
    }
  }

  void Finish(std::size_t lines) {
    line_ = lines;
    for (const auto& [block, line] : stack_)
      problems_.push_back(At(line) + block + L" is never closed");
    stack_.clear();
  }

  std::vector<std::wstring> problems_;

 private:
  void Problem(const std::wstring& what) { problems_.push_back(At(line_) + what); }
  void Open(const std::wstring& block) { stack_.emplace_back(block, line_); }
  void Expect(const std::wstring& block, const std::wstring& word) {
    if (stack_.empty() || stack_.back().first != block) Problem(word + L" outside " + block);
  }
  void Close(const std::wstring& block, const std::wstring& word = {}) {
    std::wstring closing = word.empty() ? L"End " + block : word;
    if (stack_.empty() || stack_.back().first != block) {
      Problem(closing + L" without " + block + (stack_.empty() ? L"" : L" (open: " + stack_.back().first + L")"));
      return;
    }
    stack_.pop_back();
  }
  void ExitCheck(const std::wstring& what) {
    if (what == L"FOR" || what == L"DO") {
      for (auto it = stack_.rbegin(); it != stack_.rend(); ++it)
        if (it->first == what) return;
      Problem(L"Exit " + what + L" outside " + what);
    } else if (IsProcedure(what) && !stack_.empty() && IsProcedure(stack_.front().first) &&
               stack_.front().first != what) {
      Problem(L"Exit " + what + L" inside " + stack_.front().first);
    }
  }

  std::vector<std::pair<std::wstring, std::size_t>> stack_;
  std::size_t line_ = 0;
};

std::optional<std::wstring> MarkAt(const std::wstring& line, std::size_t pos) {
  for (const std::wstring& m : kMarks)
    if (vba::StartsWithText(std::wstring_view(line).substr(pos), m)) return m;
  return std::nullopt;
}

// "{TYPE}", "{TYPE:name}", "{TYPE:name=value}": the type, name and value, or nothing
// when the text has another form.
struct VariableToken {
  std::wstring type, name, value;
};
std::optional<VariableToken> ParseVariable(const std::wstring& inner) {
  VariableToken v;
  std::size_t colon = inner.find(L':');
  v.type = Trim(inner.substr(0, colon));
  if (colon != std::wstring::npos) {
    std::wstring rest = inner.substr(colon + 1);
    std::size_t eq = rest.find(L'=');
    v.name = Trim(rest.substr(0, eq));
    if (eq != std::wstring::npos) {
      v.value = Trim(rest.substr(eq + 1));
      if (v.value.empty()) return std::nullopt;
    }
    if (v.name.empty() || !vba::IsLetter(v.name[0])) return std::nullopt;
    for (wchar_t c : v.name)
      if (!vba::IsIdentifierChar(c)) return std::nullopt;
  }
  if (v.type.empty()) return std::nullopt;
  return v;
}

}  // namespace

std::vector<std::wstring> StructureProblems(const std::vector<std::wstring>& lines) {
  BlockWalker walker;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::size_t first = i;
    std::wstring logical = lines[i];
    while (Continues(lines[i]) && i + 1 < lines.size()) {
      std::wstring t = Trim(logical);
      logical = t.substr(0, t.size() - 1) + L" " + lines[++i];
    }
    for (const std::wstring& s : Statements(logical)) walker.Statement(s, first);
  }
  walker.Finish(lines.size());
  return walker.problems_;
}

std::vector<std::wstring> LayoutProblems(const std::vector<std::wstring>& lines) {
  std::vector<std::wstring> problems;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::wstring& line = lines[i];
    if (line.find(L'\t') != std::wstring::npos) problems.push_back(At(i) + L"a tab character");
    std::size_t indent = line.find_first_not_of(L' ');
    bool continuation = i > 0 && Continues(lines[i - 1]);
    if (indent != std::wstring::npos && indent % 4 != 0 && !continuation)
      problems.push_back(At(i) + L"an indent of " + std::to_wstring(indent) + L" blanks");
    bool inString = false;
    for (std::size_t p = 0; p < line.size(); ++p) {
      if (line[p] == L'"') inString = !inString;
      else if (!inString && line[p] == L'\'') break;
      else if (inString && line.compare(p, 4, L"    ") == 0) {
        problems.push_back(At(i) + L"four blanks in a string literal");
        break;
      }
    }
  }
  return problems;
}

std::vector<std::wstring> TokenProblems(const std::vector<std::wstring>& lines, const TokenRules& rules) {
  std::vector<std::wstring> problems;
  std::map<std::wstring, std::wstring> tokenOfName;  // upper-case variable name -> its token
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::wstring& line = lines[i];
    bool inString = false, inComment = false;
    for (std::size_t p = 0; p < line.size(); ++p) {
      wchar_t c = line[p];
      if (c == L'"' && !inComment) inString = !inString;
      if (c == L'\'' && !inString) inComment = true;
      if (c == L'<' && p + 1 < line.size() && (vba::IsLetter(line[p + 1]) || line[p + 1] == L'_')) {
        std::size_t close = line.find(L'>', p);
        std::wstring word = close == std::wstring::npos ? L"" : line.substr(p + 1, close - p - 1);
        bool markLike = !word.empty() && std::all_of(word.begin(), word.end(), [](wchar_t ch) {
          return vba::IsIdentifierChar(ch);
        });
        if (markLike) {
          auto mark = MarkAt(line, p);
          if (!mark || mark->size() != word.size() + 2) problems.push_back(At(i) + L"unknown mark <" + word + L">");
          else if (!rules.marks) problems.push_back(At(i) + L"a mark " + *mark + L" where none belongs");
        }
      }
      if (c != L'{') continue;
      std::size_t close = line.find(L'}', p);
      if (close == std::wstring::npos) {
        problems.push_back(At(i) + L"a \"{\" without \"}\"");
        break;
      }
      std::wstring inner = line.substr(p + 1, close - p - 1);
      std::wstring upper = vba::UCase(inner);
      p = close;
      if (rules.templateTokens.count(upper)) continue;
      if (rules.includes && vba::StartsWithText(inner, L"INCLUDE ")) continue;
      auto var = ParseVariable(inner);
      if (rules.variableTypes.empty() || !var || (var->name.empty() && !rules.variableTypes.count(upper))) {
        problems.push_back(At(i) + L"unknown token {" + inner + L"}");
        continue;
      }
      std::wstring type = vba::UCase(var->type);
      std::size_t dot = type.find(L'.');
      if (!rules.variableTypes.count(dot == std::wstring::npos ? type : type.substr(dot + 1)))
        problems.push_back(At(i) + L"{" + inner + L"} has a type the naming standard does not know");
      if (inString) problems.push_back(At(i) + L"the variable {" + inner + L"} stands in a string literal");
      if (!var->name.empty()) {
        auto [it, added] = tokenOfName.emplace(vba::UCase(var->name), upper);
        if (!added && it->second != upper)
          problems.push_back(At(i) + L"{" + inner + L"} and {" + it->second + L"} name one variable twice");
      }
    }
  }
  return problems;
}

std::vector<std::vector<std::wstring>> FilledZones(const std::vector<std::wstring>& lines) {
  std::vector<std::vector<std::wstring>> zones(1);
  for (const std::wstring& raw : lines) {
    std::wstring line;
    for (std::size_t p = 0; p < raw.size(); ++p) {
      if (auto mark = MarkAt(raw, p)) {
        if (std::find(kZoneMarks.begin(), kZoneMarks.end(), *mark) != kZoneMarks.end()) {
          if (!Trim(line).empty()) zones.back().push_back(line);
          zones.emplace_back();
          line.clear();
        }
        p += mark->size() - 1;
      } else if (raw[p] == L'{' && raw.find(L'}', p) != std::wstring::npos) {
        std::size_t close = raw.find(L'}', p);
        std::wstring upper = vba::UCase(raw.substr(p + 1, close - p - 1));
        if (upper == L"PROCEDURETYPE") line += L"Sub";
        else if (upper != L"MODULEHEADER" && !vba::StartsWithText(upper, L"INCLUDE ")) line += L"Token";
        p = close;
      } else {
        line += raw[p];
      }
    }
    zones.back().push_back(line);
  }
  return zones;
}

}  // namespace quillet::datacheck
