#include "generators/selection.h"

#include "kernel/position.h"
#include "ui/ui_host.h"
#include "vba/error.h"
#include "vba/strings.h"

namespace quillet::generators {

void InstanceAdd(kernel::Session& s, const host::Ptr<host::CodePane>& pane, std::wstring& text, bool allowEmptySelection,
                 bool sendKeys) {
  auto [sl, sc, el, ec] = pane->GetSelection();
  if (!allowEmptySelection && sc == ec) return;
  host::Ptr<host::CodeModule> module = pane->CodeModule();
  // Host errors are passed over: a line that cannot be written is left as it is.
  try {
    if (sl > module->CountOfLines()) module->InsertLines(sl, L"");
    if (sl == el) {
      std::wstring line = module->Lines(sl, 1);
      std::wstring left = vba::Left(line, sc - 1);
      std::wstring right = ec <= vba::Len(line) ? vba::Mid(line, ec) : std::wstring();
      auto endsIn = [](const std::wstring& t, std::wstring_view chars) {
        return !t.empty() && chars.find(t.back()) != std::wstring_view::npos;
      };
      auto startsWith = [](const std::wstring& t, std::wstring_view chars) {
        return !t.empty() && chars.find(t.front()) != std::wstring_view::npos;
      };
      if (!endsIn(left, L"( ") && !startsWith(text, L"( ")) text = L" " + text;
      if (!startsWith(right, L") ") && !endsIn(text, L") ")) text += L" ";
      module->ReplaceLine(sl, left + text + right);
      long caret = vba::Len(left) + vba::Len(text) + 1;
      pane->SetSelection(sl, caret, sl, caret);
    }
  } catch (const vba::Error&) {
  }
  if (sendKeys) s.platform.SendKeys(L" {BACKSPACE}", false);
}

void SelectionReplace(kernel::Session& s, std::wstring text) { kernel::CodeReplace(s, text); }

void FilenameAdd(kernel::Session& s) {
  ui::FileDialogRequest request;
  request.title = L"Select File";
  request.filters = {{L"All Files", L"*.*"}};
  std::optional<std::wstring> path = s.uiHost.OpenFile(request);
  if (path && !path->empty()) SelectionReplace(s, L"\"" + *path + L"\"");
}

void FoldernameAdd(kernel::Session& s) {
  std::optional<std::wstring> path = s.uiHost.ChooseFolder(L"Select Folder", s.platform.CurrentDirectory());
  if (path && !path->empty()) SelectionReplace(s, L"\"" + *path + L"\"");
}

}  // namespace quillet::generators
