#include "codetools/vb2html.h"

#include "vba/vba_scan.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::codetools {
namespace {

// The longest run the page's inner loops walk, as a guard.
constexpr std::size_t kStepLimit = 9999999;

// "<" and ">" as the page writes them.
std::wstring Escaped(std::wstring_view code) {
  std::wstring text;
  text.reserve(code.size() + 64);
  for (wchar_t c : code) {
    if (c == L'<') text.append(L"&lt;", 4);
    else if (c == L'>') text.append(L"&gt;", 4);
    else text.push_back(c);
  }
  return text;
}

// Writes the page's HTML while the scan reports. The page escapes "<" and ">" before it
// scans; since neither can be part of a word, scanning the code as it is and escaping
// what is written gives the same page, and only "Rem", which counts positions, needs the
// escaped text itself.
class HtmlWriter {
 public:
  // The page is four to five times as long as the code; reserving it whole spares the
  // copies of growing, and what is never written is never touched.
  explicit HtmlWriter(std::wstring_view text) : text_(text) { out.reserve(text.size() * 6 + 64); }

  std::size_t Word(std::size_t start, std::size_t length, std::size_t at) {
    std::wstring_view word = text_.substr(start, length);
    vba::KeywordHit hit = vba::LookUpKeyword(word);
    if (hit.function) Tagged(L"<font color=#000000>", *hit.function);
    if (hit.statement) Tagged(L"<font color=#000080>", *hit.statement);
    if (vba::IsRemWord(word)) return Rem(at);
    if (!hit.function && !hit.statement) out.append(word);
    return at;
  }
  void String(std::size_t start, std::size_t length) { AppendEscaped(text_.substr(start, length)); }
  void Comment(std::size_t start, std::size_t length) {
    out.append(L"<font color=#008000>", 20);
    AppendEscaped(text_.substr(start, length));
    out.append(L"</font><br>", 11);
  }
  std::size_t Other(std::size_t at, wchar_t c) {
    switch (c) {
      case L'\r': out.append(L"<br>", 4); break;
      case L'\n': break;
      case L' ': out.append(L"&nbsp;", 6); break;
      case L'<': out.append(L"&lt;", 4); break;
      case L'>': out.append(L"&gt;", 4); break;
      default: out.push_back(c);
    }
    return at;
  }
  void End(wchar_t last) {
    if (last == L'\r') out.append(L"\r\n<br>");
    else if (last == L' ') out.append(L"&nbsp;");
  }

  std::wstring out;

 private:
  void Tagged(const wchar_t* open, const std::wstring& word) {
    out.append(open, 20).append(word).append(L"</font>", 7);
  }
  void AppendEscaped(std::wstring_view piece) {
    for (std::size_t from = 0;;) {
      std::size_t at = piece.find_first_of(L"<>", from);
      out.append(piece.substr(from, at == std::wstring_view::npos ? std::wstring_view::npos : at - from));
      if (at == std::wstring_view::npos) return;
      out.append(piece[at] == L'<' ? L"&lt;" : L"&gt;", 4);
      from = at + 1;
    }
  }

  // "Rem" makes a comment of the escaped text from the character before it on. Its end is
  // sought where the page (not the code) holds a line break at the scan's position, which
  // it nearly never does: the rest of the code comes out as one comment and the scan ends.
  std::size_t Rem(std::size_t at) {
    std::wstring escaped = Escaped(text_);
    std::size_t escapedAt = at;
    for (std::size_t k = 0; k < at; ++k)
      if (text_[k] == L'<' || text_[k] == L'>') escapedAt += 3;
    std::size_t steps = kStepLimit;
    std::size_t lineBreak = escapedAt < out.size() ? out.find(L"\r\n", escapedAt) : std::wstring::npos;
    if (lineBreak != std::wstring::npos && lineBreak - escapedAt < kStepLimit) steps = lineBreak - escapedAt;
    std::size_t start = escapedAt >= 4 ? escapedAt - 4 : 0;
    out.append(L"<font color=#008000>")
        .append(start < escaped.size() ? std::wstring_view(escaped).substr(start, 3 + steps) : std::wstring_view())
        .append(L"</font>");
    // Back to a position of the code: the character whose escaped form holds the target.
    std::size_t target = escapedAt + steps, position = 0;
    for (std::size_t k = 0; k < text_.size(); ++k) {
      position += text_[k] == L'<' || text_[k] == L'>' ? 4 : 1;
      if (position > target) return k;
    }
    return text_.size();
  }

  std::wstring_view text_;
};

}  // namespace

std::wstring VB2HTML(std::wstring_view code) {
  HtmlWriter writer(code);
  vba::ScanVba(code, writer);
  return std::move(writer.out);
}

const std::wstring& DefaultHtmlTemplate() {
  static const std::wstring page =
      L"<html><head><META HTTP-EQUIV='Content-Type' CONTENT='text/html; charset=[charset]'><style>body "
      L"{font-family:'Courier New';font-size:'10pt';}</style><title>[title]</title></head><body>[code]</body></html>";
  return page;
}

std::wstring HtmlPage(std::wstring_view templateText, std::wstring_view html, std::wstring_view moduleName,
                      std::wstring_view procedureName, std::wstring_view charset) {
  std::wstring page = vba::Replace(templateText, L"[modulename]", moduleName);
  page = vba::Replace(page, L"[procedurename]", procedureName);
  page = vba::Replace(page, L"[title]", procedureName.empty() ? moduleName : procedureName);
  page = vba::Replace(page, L"[charset]", charset);
  return vba::Replace(page, L"[code]", html);
}

}  // namespace quillet::codetools
