#include "generators/selection.h"

#include "kernel/position.h"
#include "ui/ui_host.h"
#include "vba/error.h"
#include "vba/strings.h"

namespace quillet::generators {

std::optional<kernel::CodeEdit> InstanceEdit(const kernel::CodeView& view, std::wstring& text, InstanceOptions options) {
  host::Selection at = view.selection;
  if ((!options.allowEmptySelection && at.startColumn == at.endColumn) || !at.IsOneLine()) return std::nullopt;
  std::wstring line = view.line(at.startLine);
  std::wstring left = vba::Left(line, at.startColumn - 1);
  std::wstring right = at.endColumn <= vba::Len(line) ? vba::Mid(line, at.endColumn) : std::wstring();
  auto endsIn = [](const std::wstring& t, std::wstring_view chars) {
    return !t.empty() && chars.find(t.back()) != std::wstring_view::npos;
  };
  auto startsWith = [](const std::wstring& t, std::wstring_view chars) {
    return !t.empty() && chars.find(t.front()) != std::wstring_view::npos;
  };
  if (!endsIn(left, L"( ") && !startsWith(text, L"( ")) text = L" " + text;
  if (!startsWith(right, L") ") && !endsIn(text, L") ")) text += L" ";
  return kernel::LineReplaced(at.startLine, left + text + right, vba::Len(left) + vba::Len(text) + 1);
}

void InstanceAdd(kernel::Session& s, const host::Ptr<host::CodePane>& pane, std::wstring& text, InstanceOptions options) {
  // Host errors are passed over: a line that cannot be written is left as it is.
  try {
    std::optional<kernel::CodeEdit> edit = InstanceEdit(kernel::ViewOf(*pane, kernel::TabSpacesGet(s)), text, options);
    if (edit) kernel::ApplyEdit(s.platform, *pane, *edit);
  } catch (const vba::Error&) {
  }
  if (options.sendKeys) s.platform.SendKeys(L" {BACKSPACE}", false);
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
