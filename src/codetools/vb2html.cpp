#include "codetools/vb2html.h"

#include "analysis/proc_def.h"
#include "codetools/vba_scan.h"
#include "io/paths.h"
#include "settings/file_objects.h"
#include "shell/errors.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::codetools {
namespace {

// The longest run the page's inner loops walk, as a guard.
constexpr std::size_t kStepLimit = 9999999;

// Writes the page's HTML while the scan reports; `text` is the code with "<" and ">"
// already escaped, as the scan sees it.
class HtmlWriter {
 public:
  explicit HtmlWriter(std::wstring_view text) : text_(text) { out.reserve(text.size() * 2 + 64); }

  std::size_t Word(std::size_t start, std::size_t length, std::size_t at) {
    std::wstring_view word = text_.substr(start, length);
    KeywordHit hit = LookUpKeyword(word);
    if (hit.function) Tagged(L"<font color=#000000>", *hit.function);
    if (hit.statement) Tagged(L"<font color=#000080>", *hit.statement);
    if (IsRemWord(word)) return Rem(at);
    if (!hit.function && !hit.statement) out.append(word);
    return at;
  }
  void String(std::size_t start, std::size_t length) { out.append(text_.substr(start, length)); }
  void Comment(std::size_t start, std::size_t length) {
    out.append(L"<font color=#008000>").append(text_.substr(start, length)).append(L"</font><br>");
  }
  std::size_t Other(std::size_t at, wchar_t c) {
    switch (c) {
      case L'\r': out.append(L"<br>"); break;
      case L'\n': break;
      case L' ': out.append(L"&nbsp;"); break;
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
  void Tagged(const wchar_t* open, const std::wstring& word) { out.append(open).append(word).append(L"</font>"); }

  // "Rem" makes a comment of the text from the character before it on. Its end is sought
  // where the page (not the code) holds a line break at the scan's position, which it
  // nearly never does: the rest of the code comes out as one comment and the scan ends.
  std::size_t Rem(std::size_t at) {
    std::size_t steps = kStepLimit;
    std::size_t lineBreak = at < out.size() ? out.find(L"\r\n", at) : std::wstring::npos;
    if (lineBreak != std::wstring::npos && lineBreak - at < kStepLimit) steps = lineBreak - at;
    std::size_t start = at >= 4 ? at - 4 : 0;
    std::size_t length = 3 + steps;
    out.append(L"<font color=#008000>")
        .append(start < text_.size() ? text_.substr(start, length) : std::wstring_view())
        .append(L"</font>");
    return at + steps;
  }

  std::wstring_view text_;
};

std::wstring Escaped(std::wstring_view code) {
  std::wstring text;
  text.reserve(code.size() + code.size() / 8);
  for (wchar_t c : code) {
    if (c == L'<') text.append(L"&lt;");
    else if (c == L'>') text.append(L"&gt;");
    else text.push_back(c);
  }
  return text;
}

// The charset the page declares. The system's browser is asked where it can be; the
// platform here offers none, so the default of the editor's code page applies.
std::wstring DefaultCharset() { return L"windows-1252"; }

}  // namespace

std::wstring VB2HTML(std::wstring_view code) {
  std::wstring text = Escaped(code);
  HtmlWriter writer(text);
  ScanVba(text, writer);
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

void ViewHTML(shell::Session& s, std::wstring_view html, std::wstring_view moduleName,
              std::wstring_view procedureName) {
  shell::Trap(s, L"docCodeExplorer.ViewHTML", [&] {
    std::wstring folder = s.platform.ProgramFolder();
    if (!vba::EndsWithText(folder, L"\\")) folder += L"\\";
    std::wstring templateText;
    settings::File templateFile(s, folder + kHtmlTemplateFile);
    templateFile.silent = true;  // a missing template is the ordinary case
    if (s.platform.Files().FileExists(templateFile.FullName())) templateText = templateFile.ReadFile();
    if (templateText.empty()) templateText = DefaultHtmlTemplate();
    std::wstring page = HtmlPage(templateText, html, moduleName, procedureName, DefaultCharset());
    std::wstring target = io::JoinPath(s.platform.TempFolder(), kHtmlPageFile);
    settings::File pageFile(s, target);
    if (!pageFile.WriteFile(page)) return;
    s.platform.ShellOpen(target);
  });
}

std::wstring ProcedureCode(shell::Session& s, const host::Ptr<host::VBComponent>& component,
                           std::wstring_view procedureName, host::ProcKind kind) {
  std::wstring code;
  shell::Trap(s, L"docCodeExplorer.ProcedureCode", [&] {
    int pointer = s.platform.MousePointer();
    s.platform.SetMousePointer(host::kPointerHourglass);
    struct Restore {
      host::Platform& p;
      int pointer;
      ~Restore() { p.SetMousePointer(pointer); }
    } restore{s.platform, pointer};
    auto module = component->CodeModule();
    if (vba::Like(procedureName, L"(Declaration)")) {
      long n = module->CountOfDeclarationLines();
      code = n > 0 ? module->Lines(1, n) : std::wstring();
      return;
    }
    analysis::Rv_ProcDef def;
    auto project = component->Collection() ? component->Collection()->Parent() : nullptr;
    def.init(s, project ? project->Name() : std::wstring(), *module, procedureName, kind);
    code = def.ProcCode;
  });
  return code;
}

void Convert2HTML(shell::Session& s, const host::Ptr<host::VBComponent>& component,
                  std::wstring_view procedureName, host::ProcKind kind) {
  shell::Trap(s, L"docCodeExplorer.Convert2HTML", [&] {
    if (!component) return;
    std::wstring code;
    if (procedureName.empty()) {
      auto module = component->CodeModule();
      long n = module->CountOfLines();
      code = n > 0 ? module->Lines(1, n) : std::wstring();
    } else {
      code = ProcedureCode(s, component, procedureName, kind);
    }
    ViewHTML(s, VB2HTML(code), component->Name(), procedureName);
  });
}

}  // namespace quillet::codetools
