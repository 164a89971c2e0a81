#pragma once
// The settings dialog: every settings item on eleven tabs, each item's control named after
// its key so that one loop fills the dialog and one writes it back; the type prefix table
// of the standards file as text; pickers for the paths. Apply (and OK after an edit) saves
// and rereads everything, so the new settings hold at once.
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "settings/apply_watcher.h"
#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::settings {

class FrmSettings : public kernel::BuilderForm {
 public:
  static constexpr int kTabCount = 11;

  explicit FrmSettings(kernel::Session& s);

  // On the first start the dialog asks for the user's personal data as it appears.
  void SetFirstRun(bool firstRun) { firstRun_ = firstRun; }
  // What the controls held after loading; Apply saves only when the state differs.
  const std::wstring& InitialState() const { return initialState_; }

  ui::TabStrip& tabOptions;
  ui::CommandButton& cmdOK;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdApply;
  ui::CommandButton& cmdHelp;

 private:
  // Layout: the page of each tab with its controls.
  void BuildPages();
  ui::PictureBox& Page(int tab) const { return *pages_[tab]; }
  void ShowPage(int tab);

  // Handlers.
  void FormLoad();
  void FormActivate();
  void FormUnload();
  void ApplyClick();
  void OkClick();
  void GetPathClick(int index);

  // Pickers: the chosen path, or empty when the user cancels.
  std::wstring FilePick(const std::wstring& defaultFolder, const std::wstring& title, const std::wstring& filter);
  std::wstring FolderPick(const std::wstring& startFolder, const std::wstring& title);
  // The folder of a path setting's present text, made absolute, when that folder exists;
  // else empty.
  std::wstring ExistingFolderOf(const std::wstring& path) const;

  kernel::Session& s_;
  bool firstRun_ = false;
  std::vector<std::shared_ptr<ApplyWatcher>> watchers_;
  std::wstring initialState_;
  std::array<ui::PictureBox*, kTabCount> pages_{};
  ui::TextBox* txtTypePrefix_ = nullptr;
  ui::CheckBox* chkViewTipOfTheDay_ = nullptr;
};

}  // namespace quillet::settings
