#include "generators/explicit_argument.h"

#include <cwctype>

#include "generators/frm_select_from_list.h"
#include "generators/scope.h"
#include "kernel/form_open.h"
#include "kernel/position.h"
#include "kernel/product.h"
#include "ui/ui_host.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

bool IsWordCharacter(wchar_t c) { return std::iswalnum(c) || c == L'_'; }

// The procedure a word names: of the module, of the project, or of the VBA library.
std::shared_ptr<analysis::Rv_ProcDef> CalledProcedure(kernel::Session& s, const std::wstring& word) {
  if (const auto* p = ScopeOf(s).ModuleProcs(s).Find(word)) return *p;
  const analysis::ProjectModels& models = ModelsOf(s);
  if (const auto* p = models.ProjectProcs.Find(word)) return *p;
  for (const auto& p : models.ProjectProcs)
    if (vba::EqualsText(p->Name, word)) return p;
  if (const auto* p = models.LibraryProcs.Find(L"VBA." + word)) return *p;
  return nullptr;
}

}  // namespace

std::wstring StatementBeforeCaret(const kernel::CodeView& view) {
  host::Selection at = view.Place();
  std::wstring text = vba::LTrim(vba::Left(view.line(at.startLine), at.startColumn - 1));
  for (long line = at.startLine - 1; line >= 1; --line) {
    std::wstring above = view.line(line);
    if (vba::Right(above, 2) != L" _") break;
    text = above.substr(0, above.size() - 1) + text;
  }
  return text;
}

std::vector<std::wstring> CalledWords(const std::wstring& text) {
  std::vector<std::wstring> words;
  std::wstring word;
  for (std::size_t i = 0; i < text.size(); ++i) {
    wchar_t c = text[i];
    if (c == L'"') {
      std::size_t close = text.find(L'"', i + 1);
      if (close == std::wstring::npos) break;
      i = close;
    } else if (IsWordCharacter(c)) {
      word += c;
    } else {
      if (!word.empty() && std::iswalpha(word[0])) words.push_back(word);
      word.clear();
    }
  }
  return words;
}

std::vector<std::wstring> ArgumentChoices(const std::wstring& remainder, const std::vector<std::wstring>& arguments) {
  std::vector<std::wstring> choices;
  if (remainder.size() < 2) return arguments;
  if (remainder.find(L":=") == std::wstring::npos) return choices;
  for (const std::wstring& a : arguments)
    if (vba::InStr(1, remainder, a, vba::Compare::Text) == 0) choices.push_back(a + L":=");
  return choices;
}

void ExplicitArgumentAdd(kernel::Session& s) {
  std::optional<kernel::CodeView> view = kernel::ActiveView(s);
  if (!view) return;
  std::wstring text = StatementBeforeCaret(*view);
  std::vector<std::wstring> words = CalledWords(text);
  std::shared_ptr<analysis::Rv_ProcDef> proc;
  std::wstring word;
  for (auto w = words.rbegin(); w != words.rend() && !proc; ++w) {
    proc = CalledProcedure(s, *w);
    word = *w;
  }
  if (!proc) {
    s.uiHost.MsgBox(L"The called procedure is missing", ui::vbOKOnly, kernel::kAppName);
    return;
  }
  if (!proc->ProcArguments || proc->ProcArguments->Count() == 0) return;
  long last = vba::InStrRev(text, word);
  std::wstring remainder = vba::Mid(text, last + vba::Len(word) + 1);
  std::vector<std::wstring> names;
  for (const auto& a : proc->ProcArguments->Items()) names.push_back(a->Name);
  std::vector<std::wstring> choices = ArgumentChoices(remainder, names);
  if (choices.empty()) return;
  auto form = std::make_unique<FrmSelectFromList>(s);
  form->Init(L"Explicit Argument");
  for (const std::wstring& c : choices) form->lstList.AddItem(c);
  form->lstList.SetListIndex(0);
  kernel::FormOpen(s, std::move(form), {.callInit = false});
}

void ExplicitArgumentCommand(kernel::Session& s, const std::wstring&, std::wstring&) { ExplicitArgumentAdd(s); }

}  // namespace quillet::generators
