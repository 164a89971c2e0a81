#pragma once
// A UiHost for unit tests: answers to boxes and pickers are scripted in advance and
// consumed in order, actions queued in advance run one per Pump (what the user does
// while a modal form waits), and everything asked or shown goes into a log.
//   ui::TestUiHost host;
//   host.AnswerMsgBox(ui::vbYes);
//   host.QueueAction([&] { ui::UserInput::Click(frm.cmdOK); });
//   frm.Show(true);   // returns once the click has hidden or unloaded the form
#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "ui/ui_host.h"

namespace quillet::ui {

// A modal form waits and nothing is queued, or a box was asked with no answer scripted:
// the test forgot an input. It is no std::exception, so that no error trap of the code
// under test takes it for a failure of its own: it ends the test.
class UnscriptedInput {
 public:
  explicit UnscriptedInput(std::string message) : message_(std::move(message)) {}
  const char* what() const noexcept { return message_.c_str(); }

 private:
  std::string message_;
};

class TestUiHost : public UiHost {
 public:
  void AnswerMsgBox(int result) { msgBoxAnswers_.push_back(result); }
  void AnswerInputBox(std::optional<std::wstring> text) { inputAnswers_.push_back(std::move(text)); }
  // Answers an open or a save file dialog.
  void AnswerFile(std::optional<std::wstring> path) { fileAnswers_.push_back(std::move(path)); }
  void AnswerFolder(std::optional<std::wstring> path) { folderAnswers_.push_back(std::move(path)); }
  // Queues an action for a later Pump.
  void QueueAction(std::function<void()> action) { actions_.push_back(std::move(action)); }
  std::size_t PendingActions() const { return actions_.size(); }

  // Lines such as "MsgBox(Save?, 36, Quillet) = Yes", "Show frmList modal", "Hide frmList",
  // "Unload frmList", "InputBox(Value, Case, ) = Cancel", "OpenFile(Import) = C:\x.bas".
  const std::vector<std::wstring>& Log() const { return log_; }
  void ClearLog() { log_.clear(); }
  const std::vector<FileDialogRequest>& FileRequests() const { return fileRequests_; }
  int DoEventsCount() const { return doEvents_; }

  int MsgBox(std::wstring_view prompt, int buttons, std::wstring_view title) override;
  std::optional<std::wstring> InputBox(std::wstring_view prompt, std::wstring_view title,
                                       std::wstring_view defaultText) override;
  std::optional<std::wstring> OpenFile(const FileDialogRequest& request) override;
  std::optional<std::wstring> SaveFile(const FileDialogRequest& request) override;
  std::optional<std::wstring> ChooseFolder(std::wstring_view title, std::wstring_view startFolder) override;
  void FormShown(Form& form, bool modal) override;
  void FormHidden(Form& form) override;
  void FormUnloaded(Form& form) override;
  // Runs the next queued action; throws UnscriptedInput when there is none.
  void Pump() override;
  void DoEvents() override { ++doEvents_; }

 private:
  template <class T>
  T Next(std::deque<T>& answers, const std::wstring& asked);
  std::optional<std::wstring> PickFile(const wchar_t* kind, const FileDialogRequest& request);

  std::deque<int> msgBoxAnswers_;
  std::deque<std::optional<std::wstring>> inputAnswers_;
  std::deque<std::optional<std::wstring>> fileAnswers_;
  std::deque<std::optional<std::wstring>> folderAnswers_;
  std::deque<std::function<void()>> actions_;
  std::vector<std::wstring> log_;
  std::vector<FileDialogRequest> fileRequests_;
  std::vector<std::wstring> modalShown_;
  int doEvents_ = 0;
};

}  // namespace quillet::ui
