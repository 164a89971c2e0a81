#include "frontends/cli/runner_ui_host.h"

#include <algorithm>

#include "frontends/cli/json_text.h"
#include "frontends/cli/scenario_error.h"
#include "frontends/cli/scenario_runner.h"
#include "ui/form.h"

namespace quillet::cli {
namespace {

json Quoted(std::wstring_view s) { return U(s); }

}  // namespace

int RunnerUiHost::MsgBox(std::wstring_view prompt, int buttons, std::wstring_view title) {
  std::string asked = "a message box " + json(U(prompt)).dump();
  const json* step = runner_.PeekStep();
  if (!step || !step->is_object() || !step->contains("msgbox")) runner_.WrongAnswer(asked, "msgbox");
  const json& answer = (*step)["msgbox"];
  int result = answer.is_string() ? ui::MsgBoxResultOf(W(answer)) : 0;
  std::vector<ui::MsgBoxResult> offered = ui::MsgBoxButtons(buttons);
  if (std::find(offered.begin(), offered.end(), result) == offered.end()) {
    std::string names;
    for (auto b : offered) names += (names.empty() ? "" : ", ") + U(ui::MsgBoxResultName(b));
    throw ScenarioError{runner_.StepLabel(runner_.NextIndex()) + ": " + answer.dump() + " is not a button of " + asked +
                        ", which offers " + names};
  }
  runner_.ConsumeStep();
  runner_.Record({{"msgbox", {{"prompt", Quoted(prompt)}, {"buttons", buttons}, {"title", Quoted(title)}}},
                  {"answer", U(ui::MsgBoxResultName(result))}});
  return result;
}

std::optional<std::wstring> RunnerUiHost::InputBox(std::wstring_view prompt, std::wstring_view title,
                                                   std::wstring_view defaultText) {
  std::string asked = "an input box " + json(U(prompt)).dump();
  const json* step = runner_.PeekStep();
  if (!step || !step->is_object() || !step->contains("inputbox")) runner_.WrongAnswer(asked, "inputbox");
  const json& answer = (*step)["inputbox"];
  if (!answer.is_null() && !answer.is_string())
    throw ScenarioError{runner_.StepLabel(runner_.NextIndex()) + ": an input box is answered with a text or null"};
  runner_.ConsumeStep();
  runner_.Record({{"inputbox", {{"prompt", Quoted(prompt)}, {"title", Quoted(title)}}}, {"answer", answer}});
  if (answer.is_null()) return std::nullopt;
  return W(answer);
}

std::optional<std::wstring> RunnerUiHost::FileDialog(const char* kind, const ui::FileDialogRequest& request) {
  std::string asked = std::string("a ") + kind + " file dialog (\"" + U(request.title) + "\")";
  const json* step = runner_.PeekStep();
  if (!step || !step->is_object() || !step->contains("file")) runner_.WrongAnswer(asked, "file");
  const json& answer = (*step)["file"];
  if (!answer.is_null() && !answer.is_string())
    throw ScenarioError{runner_.StepLabel(runner_.NextIndex()) + ": a file dialog is answered with a path or null"};
  runner_.ConsumeStep();
  json filters = json::array();
  for (const auto& f : request.filters) filters.push_back({{"description", U(f.description)}, {"pattern", U(f.pattern)}});
  runner_.Record({{"file", {{"kind", kind}, {"title", U(request.title)}, {"filters", filters}}}, {"answer", answer}});
  if (answer.is_null()) return std::nullopt;
  return W(answer);
}

std::optional<std::wstring> RunnerUiHost::OpenFile(const ui::FileDialogRequest& request) {
  return FileDialog("open", request);
}

std::optional<std::wstring> RunnerUiHost::SaveFile(const ui::FileDialogRequest& request) {
  return FileDialog("save", request);
}

std::optional<std::wstring> RunnerUiHost::ChooseFolder(std::wstring_view title, std::wstring_view startFolder) {
  std::string asked = "a folder chooser (\"" + U(title) + "\")";
  const json* step = runner_.PeekStep();
  if (!step || !step->is_object() || !step->contains("folder")) runner_.WrongAnswer(asked, "folder");
  const json& answer = (*step)["folder"];
  if (!answer.is_null() && !answer.is_string())
    throw ScenarioError{runner_.StepLabel(runner_.NextIndex()) + ": a folder chooser is answered with a path or null"};
  runner_.ConsumeStep();
  runner_.Record({{"folder", {{"title", U(title)}, {"start", U(startFolder)}}}, {"answer", answer}});
  if (answer.is_null()) return std::nullopt;
  return W(answer);
}

void RunnerUiHost::FormShown(ui::Form& form, bool modal) { runner_.Record({{"show", U(form.Name())}, {"modal", modal}}); }

// A form that decides something by closing (a pop-up's key and choice) has it recorded
// beside its going.
void RunnerUiHost::FormGone(const char* kind, ui::Form& form) {
  json entry = {{kind, U(form.Name())}};
  if (json outcome = json::parse(form.Outcome().dump()); !outcome.is_null()) entry["outcome"] = std::move(outcome);
  runner_.Record(std::move(entry));
}

void RunnerUiHost::FormHidden(ui::Form& form) { FormGone("hide", form); }

void RunnerUiHost::FormUnloaded(ui::Form& form) { FormGone("unload", form); }

void RunnerUiHost::Pump() { runner_.RunNextStep(); }

}  // namespace quillet::cli
