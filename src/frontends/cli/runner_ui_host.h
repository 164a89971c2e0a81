#pragma once
// The scenario runner's UiHost: answers to boxes and pickers are the scenario's next steps,
// and a modal form that waits runs the steps that follow until it closes.
#include <optional>
#include <string>

#include "ui/ui_host.h"

namespace quillet::cli {

class ScenarioRunner;

class RunnerUiHost : public ui::UiHost {
 public:
  explicit RunnerUiHost(ScenarioRunner& runner) : runner_(runner) {}

  int MsgBox(std::wstring_view prompt, int buttons, std::wstring_view title) override;
  std::optional<std::wstring> InputBox(std::wstring_view prompt, std::wstring_view title,
                                       std::wstring_view defaultText) override;
  std::optional<std::wstring> OpenFile(const ui::FileDialogRequest& request) override;
  std::optional<std::wstring> SaveFile(const ui::FileDialogRequest& request) override;
  std::optional<std::wstring> ChooseFolder(std::wstring_view title, std::wstring_view startFolder) override;
  void FormShown(ui::Form& form, bool modal) override;
  void FormHidden(ui::Form& form) override;
  void FormUnloaded(ui::Form& form) override;
  void Pump() override;
  void DoEvents() override {}

 private:
  std::optional<std::wstring> FileDialog(const char* kind, const ui::FileDialogRequest& request);
  void FormGone(const char* kind, ui::Form& form);
  ScenarioRunner& runner_;
};

}  // namespace quillet::cli
