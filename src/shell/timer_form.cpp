#include "shell/timer_form.h"

#include "shell/errors.h"
#include "shell/global.h"
#include "shell/session.h"
#include "vba/text.h"

namespace quillet::shell {

TimerForm::TimerForm(Session& s) : s_(s) {}

TimerForm::~TimerForm() { Unload(); }

void TimerForm::Load() {
  if (loaded_) return;
  loaded_ = true;
  timer1_ = s_.clock.CreateTimer([this] { Timer1(); });
  timer2_ = s_.clock.CreateTimer([this] { Timer2(); });
  timer3_ = s_.clock.CreateTimer([this] { Timer3(); });
  s_.clock.SetInterval(timer1_, 500);
}

void TimerForm::Unload() {
  if (!loaded_) return;
  loaded_ = false;
  s_.clock.DestroyTimer(timer1_);
  s_.clock.DestroyTimer(timer2_);
  s_.clock.DestroyTimer(timer3_);
  timer1_ = timer2_ = timer3_ = 0;
}

int64_t TimerForm::Timer1Interval() const { return s_.clock.Interval(timer1_); }
void TimerForm::SetTimer1Interval(int64_t ms) { s_.clock.SetInterval(timer1_, ms); }
int64_t TimerForm::Timer2Interval() const { return s_.clock.Interval(timer2_); }
int64_t TimerForm::Timer3Interval() const { return s_.clock.Interval(timer3_); }
void TimerForm::SetTimer3Interval(int64_t ms) { s_.clock.SetInterval(timer3_, ms); }

void TimerForm::Timer1() {
  // The editor has no event for a change of project, so the add-in looks twice a second.
  Trap(s_, L"frmTimer.Timer1", [&] {
    if (!s_.vbe) return;
    if (s_.vbe->VBProjects()->Count() == 0) {
      MenusEnabledSet(s_, false);
      s_.currentProjectFile.clear();
      return;
    }
    host::Ptr<host::VBProject> project = s_.vbe->ActiveVBProject();
    if (!project) vba::Raise(vba::kErrObjectNotSet);
    if (s_.hostName.empty()) s_.hostName = project->References()->Item(2)->Name();
    if (project->Protection() == 1) {
      MenusEnabledSet(s_, false);
      return;
    }
    MenusEnabledSet(s_, true);
    MenuItemsUpdate(s_);
    std::wstring file = project->FileName();
    if (file.empty()) file = L"NewProject";
    if (!vba::EqualsText(file, s_.currentProjectFile)) {
      s_.currentProjectFile = file;
      ProjectInitialize(s_, false);
      CodeExplorerRefresh(s_);
    }
  });
}

void TimerForm::DelayedStart(std::wstring form, std::wstring text, int64_t ms) {
  delayedForm_ = std::move(form);
  delayedText_ = std::move(text);
  s_.clock.SetInterval(timer2_, ms);
}

void TimerForm::Timer2() {
  // Each request fires once.
  s_.clock.SetInterval(timer2_, 0);
  Trap(s_, L"frmTimer.Timer2", [&] {
    if (openDelayed && !delayedForm_.empty()) openDelayed(delayedForm_, delayedText_);
  });
}

void TimerForm::Timer3() {
  if (ImmediateMessageAdd(s_, L"", true)) SetTimer3Interval(0);
}

}  // namespace quillet::shell
