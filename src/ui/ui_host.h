#pragma once
// What a front-end provides to the forms: message and input boxes, file and folder
// pickers, notice of forms shown and closed, and the pumping of outside events while a
// modal form waits. The script runner, the studio and the unit tests each implement it.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet::ui {

class Form;

// Buttons, icons and default button of a message box, added together as classic code does.
enum MsgBoxStyle : int {
  vbOKOnly = 0,
  vbOKCancel = 1,
  vbAbortRetryIgnore = 2,
  vbYesNoCancel = 3,
  vbYesNo = 4,
  vbRetryCancel = 5,
  vbCritical = 16,
  vbQuestion = 32,
  vbExclamation = 48,
  vbInformation = 64,
  vbDefaultButton1 = 0,
  vbDefaultButton2 = 256,
  vbDefaultButton3 = 512,
  vbApplicationModal = 0,
  vbSystemModal = 4096,
};

// The button that closed a message box.
enum MsgBoxResult : int { vbOK = 1, vbCancel = 2, vbAbort = 3, vbRetry = 4, vbIgnore = 5, vbYes = 6, vbNo = 7 };

// The buttons a message box style offers, in order ("Yes", "No", "Cancel" for vbYesNoCancel).
std::vector<MsgBoxResult> MsgBoxButtons(int style);
// "OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"; empty for another number.
std::wstring_view MsgBoxResultName(int result);
// The result of a button's name, compared without regard to case; 0 when unknown.
int MsgBoxResultOf(std::wstring_view name);

struct FileFilter {
  std::wstring description;  // "Modules (*.bas)"
  std::wstring pattern;      // "*.bas;*.cls"
};

// An open or save file dialog.
struct FileDialogRequest {
  std::wstring title;
  std::vector<FileFilter> filters;
  int filterIndex = 1;        // 1-based, as classic dialogs count
  std::wstring initialFolder;
  std::wstring fileName;      // proposed name or full path
  std::wstring defaultExtension;
};

class UiHost {
 public:
  virtual ~UiHost() = default;

  // Shows a message box and returns the button chosen (vbOK .. vbNo).
  virtual int MsgBox(std::wstring_view prompt, int buttons, std::wstring_view title) = 0;
  // nullopt when the user cancels.
  virtual std::optional<std::wstring> InputBox(std::wstring_view prompt, std::wstring_view title,
                                               std::wstring_view defaultText) = 0;
  // The chosen path, or nullopt when the user cancels.
  virtual std::optional<std::wstring> OpenFile(const FileDialogRequest& request) = 0;
  virtual std::optional<std::wstring> SaveFile(const FileDialogRequest& request) = 0;
  virtual std::optional<std::wstring> ChooseFolder(std::wstring_view title, std::wstring_view startFolder) = 0;

  // Notices: a form became visible (modal or not), was hidden, was unloaded.
  virtual void FormShown(Form& form, bool modal) = 0;
  virtual void FormHidden(Form& form) = 0;
  virtual void FormUnloaded(Form& form) = 0;

  // Runs one outside event (a user action, a timer) while a modal form waits. A host that
  // knows no event can ever come throws, so that a modal form cannot wait forever.
  virtual void Pump() = 0;
  // Lets pending outside work run, as DoEvents does; returns at once when there is none.
  virtual void DoEvents() = 0;
};

}  // namespace quillet::ui
