#include "ui/com_dlg.h"

#include "io/paths.h"

namespace quillet::ui {

std::wstring ComDlg::FilterOf(const std::vector<std::pair<std::wstring, std::wstring>>& pairs) {
  std::wstring filter;
  for (const auto& [text, pattern] : pairs) {
    filter += text;
    filter += L'\0';
    filter += pattern;
    filter += L'\0';
  }
  return filter;
}

std::vector<ui::FileFilter> ComDlg::FiltersOf(std::wstring_view filter) {
  std::vector<std::wstring> parts;
  std::size_t start = 0;
  while (start < filter.size()) {
    std::size_t end = filter.find(L'\0', start);
    if (end == std::wstring_view::npos) end = filter.size();
    parts.emplace_back(filter.substr(start, end - start));
    start = end + 1;
  }
  std::vector<ui::FileFilter> filters;
  for (std::size_t k = 0; k + 1 < parts.size(); k += 2) filters.push_back({parts[k], parts[k + 1]});
  return filters;
}

std::wstring ComDlg::FileTitle() const { return io::FileNameOf(FileName); }

ui::FileDialogRequest ComDlg::Request() const {
  ui::FileDialogRequest r;
  r.title = DialogTitle;
  r.filters = FiltersOf(Filter);
  r.filterIndex = FilterIndex;
  r.initialFolder = Directory;
  r.fileName = FileName;
  r.defaultExtension = Extension;
  return r;
}

bool ComDlg::Chosen(const std::optional<std::wstring>& answer) {
  FileName = answer.value_or(std::wstring());
  if (!FileName.empty() && !Extension.empty() && io::ExtensionOf(FileName).empty()) FileName += L"." + Extension;
  return !FileName.empty();
}

bool ComDlg::ShowOpen() { return Chosen(host_.OpenFile(Request())); }

bool ComDlg::ShowSave() { return Chosen(host_.SaveFile(Request())); }

}  // namespace quillet::ui
