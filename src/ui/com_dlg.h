#pragma once
// The open and save file dialogs, with the properties classic code sets on them. Filters
// are pairs of text and pattern, each ended by a zero character:
//   ComDlg dlg(s.uiHost);
//   dlg.Filter = ComDlg::FilterOf({{L"Basic Files (*.bas)", L"*.bas"}, {L"All Files (*.*)", L"*.*"}});
//   dlg.DialogTitle = L"Export File";
//   dlg.ShowSave();            // dlg.FileName holds the choice, "" when cancelled
// The platform's own pickers answer (in scenarios, the "file" steps).
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/ui_host.h"

namespace quillet::ui {

class ComDlg {
 public:
  explicit ComDlg(UiHost& host) : host_(host) {}

  std::wstring Filter;
  int FilterIndex = 1;
  std::wstring DialogTitle;
  std::wstring FileName;   // proposed before, chosen after; "" when cancelled
  std::wstring Directory;  // the folder to begin in
  std::wstring Extension;  // added to a name typed without one

  // The name and extension of the chosen file, without its folder.
  std::wstring FileTitle() const;

  // True when the user chose a file.
  bool ShowOpen();
  bool ShowSave();

  // "text\0pattern\0" for each pair.
  static std::wstring FilterOf(const std::vector<std::pair<std::wstring, std::wstring>>& pairs);
  // The pairs of a filter string; a text without its pattern is left out.
  static std::vector<ui::FileFilter> FiltersOf(std::wstring_view filter);

 private:
  ui::FileDialogRequest Request() const;
  bool Chosen(const std::optional<std::wstring>& answer);

  UiHost& host_;
};

}  // namespace quillet::ui
