#include "support/test_ui_host.h"

#include "ui/form.h"
#include "vba/encoding.h"

namespace quillet::ui {

namespace {
std::wstring Answer(const std::optional<std::wstring>& a) { return a ? *a : L"Cancel"; }
}  // namespace

template <class T>
T TestUiHost::Next(std::deque<T>& answers, const std::wstring& asked) {
  if (answers.empty()) throw UnscriptedInput("no answer scripted for " + vba::ToUtf8(asked));
  T answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

int TestUiHost::MsgBox(std::wstring_view prompt, int buttons, std::wstring_view title) {
  std::wstring asked = L"MsgBox(" + std::wstring(prompt) + L", " + std::to_wstring(buttons) + L", " +
                       std::wstring(title) + L")";
  int answer = Next(msgBoxAnswers_, asked);
  log_.push_back(asked + L" = " + std::wstring(MsgBoxResultName(answer)));
  return answer;
}

std::optional<std::wstring> TestUiHost::InputBox(std::wstring_view prompt, std::wstring_view title,
                                                 std::wstring_view defaultText) {
  std::wstring asked = L"InputBox(" + std::wstring(prompt) + L", " + std::wstring(title) + L", " +
                       std::wstring(defaultText) + L")";
  auto answer = Next(inputAnswers_, asked);
  log_.push_back(asked + L" = " + Answer(answer));
  return answer;
}

std::optional<std::wstring> TestUiHost::PickFile(const wchar_t* kind, const FileDialogRequest& request) {
  std::wstring asked = std::wstring(kind) + L"(" + request.title + L")";
  auto answer = Next(fileAnswers_, asked);
  fileRequests_.push_back(request);
  log_.push_back(asked + L" = " + Answer(answer));
  return answer;
}

std::optional<std::wstring> TestUiHost::OpenFile(const FileDialogRequest& request) {
  return PickFile(L"OpenFile", request);
}

std::optional<std::wstring> TestUiHost::SaveFile(const FileDialogRequest& request) {
  return PickFile(L"SaveFile", request);
}

std::optional<std::wstring> TestUiHost::ChooseFolder(std::wstring_view title, std::wstring_view startFolder) {
  std::wstring asked = L"ChooseFolder(" + std::wstring(title) + L", " + std::wstring(startFolder) + L")";
  auto answer = Next(folderAnswers_, asked);
  log_.push_back(asked + L" = " + Answer(answer));
  return answer;
}

void TestUiHost::FormShown(Form& form, bool modal) {
  log_.push_back(L"Show " + form.Name() + (modal ? L" modal" : L""));
  if (modal) modalShown_.push_back(form.Name());
}

void TestUiHost::FormHidden(Form& form) {
  log_.push_back(L"Hide " + form.Name());
  std::erase(modalShown_, form.Name());
}

void TestUiHost::FormUnloaded(Form& form) {
  log_.push_back(L"Unload " + form.Name());
  std::erase(modalShown_, form.Name());
}

void TestUiHost::Pump() {
  if (actions_.empty()) {
    std::wstring waiting = modalShown_.empty() ? L"a modal form" : modalShown_.back();
    throw UnscriptedInput(vba::ToUtf8(waiting) + " waits modally and no action is queued");
  }
  std::function<void()> action = std::move(actions_.front());
  actions_.pop_front();
  action();
}

}  // namespace quillet::ui
