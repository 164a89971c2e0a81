#include "shell/tips.h"

#include <vector>

#include "io/paths.h"
#include "settings/registry.h"
#include "kernel/errors.h"
#include "kernel/form_open.h"
#include "ui/controls.h"
#include "vba/encoding.h"
#include "vba/numbers.h"
#include "vba/strings.h"
#include "vba/variant.h"

namespace quillet::shell {
namespace {

const wchar_t* TopicName(TipTopic topic) {
  static const wchar_t* kNames[] = {L"Quillet_Startup", L"VarBuilder",  L"CodeLineBuilder",
                                    L"FragmentBuilder", L"ProcBuilder", L"ClassBuilder"};
  return kNames[topic];
}

// The per-user value that switches a topic's tips on: the startup list has its own.
const wchar_t* SwitchKey(TipTopic topic) {
  return topic == kTipStartup ? L"Show Tips at Startup" : L"Show Tips at Builder Open";
}

bool TipsWanted(kernel::Session& s, TipTopic topic) {
  return vba::Variant(settings::UserSettingGet(s, SwitchKey(topic), L"0")).ToBool();
}

// The tips of a topic: one a line, comment lines left out; none without a file.
std::vector<std::wstring> ReadTips(kernel::Session& s, TipTopic topic) {
  std::wstring path = io::JoinPath(io::JoinPath(s.platform.ProgramFolder(), L"Tips"), std::wstring(TopicName(topic)) + L".txt");
  std::vector<std::wstring> tips;
  if (!s.platform.Files().FileExists(path)) return tips;
  for (const std::wstring& line : vba::SplitLines(vba::FromWindows1252(s.platform.Files().ReadFile(path)))) {
    std::wstring tip = vba::Trim(line);
    if (!tip.empty() && tip.front() != L'\'') tips.push_back(tip);
  }
  return tips;
}

class FrmTip : public kernel::BuilderForm {
 public:
  FrmTip(kernel::Session& s, TipTopic topic, std::vector<std::wstring> tips)
      : kernel::BuilderForm(s.ui, L"frmTip"),
        lblTitle(Add<ui::Label>(L"lblTitle")),
        lblTip(Add<ui::Label>(L"lblTip")),
        chkShowTips(Add<ui::CheckBox>(L"chkShowTips")),
        cmdNext(Add<ui::CommandButton>(L"cmdNext")),
        cmdClose(Add<ui::CommandButton>(L"cmdClose")),
        s_(s),
        topic_(topic),
        tips_(std::move(tips)) {
    SetCaption(L"Tip of the Day");
    SetBorderStyle(ui::vbFixedDialog);
    Move(0, 0, 6000, 3300);
    lblTitle.SetCaption(L"Did you know...");
    lblTitle.Move(240, 240, 5400, 255);
    lblTip.Move(240, 600, 5400, 1440);
    chkShowTips.SetCaption(topic == kTipStartup ? L"&Show tips at startup" : L"&Show tips when a builder opens");
    chkShowTips.Move(240, 2280, 3000, 255);
    cmdNext.SetCaption(L"&Next Tip");
    cmdNext.Move(3240, 2220, 1215, 375);
    cmdClose.SetCaption(L"&Close");
    cmdClose.Move(4560, 2220, 1215, 375);
    cmdClose.SetDefault(true);
    cmdClose.SetCancel(true);
    OnLoad = [this] {
      ui::ScopedFlag quiet(filling_);
      chkShowTips.SetChecked(TipsWanted(s_, topic_));
      NextTip();
    };
    cmdNext.OnClick = [this] { NextTip(); };
    chkShowTips.OnClick = [this] {
      if (filling_) return;
      settings::UserSettingSave(s_, SwitchKey(topic_), chkShowTips.Checked() ? L"1" : L"0");
    };
    cmdClose.OnClick = [this] { Unload(); };
  }

  ui::Label& lblTitle;
  ui::Label& lblTip;
  ui::CheckBox& chkShowTips;
  ui::CommandButton& cmdNext;
  ui::CommandButton& cmdClose;

 private:
  // Each showing goes on where the last one stopped.
  void NextTip() {
    std::wstring key = std::wstring(L"Tip Index ") + TopicName(topic_);
    std::wstring stored = settings::UserSettingGet(s_, key, L"0");
    long index = vba::IsNumeric(stored) ? static_cast<long>(vba::Val(stored)) : 0;
    if (index < 0 || index >= static_cast<long>(tips_.size())) index = 0;
    lblTip.SetCaption(tips_[index]);
    settings::UserSettingSave(s_, key, std::to_wstring((index + 1) % static_cast<long>(tips_.size())));
  }

  kernel::Session& s_;
  TipTopic topic_;
  std::vector<std::wstring> tips_;
  bool filling_ = false;
};

}  // namespace

void ShowTip(kernel::Session& s, TipTopic topic, bool forced) {
  kernel::Trap(s, L"frmTip.ShowTip", [&] {
    if (!forced && !TipsWanted(s, topic)) return;
    std::vector<std::wstring> tips = ReadTips(s, topic);
    if (tips.empty()) return;
    kernel::FormOpenOptions o;
    o.needCodeWindow = false;
    o.callInit = false;
    kernel::FormOpen(s, std::make_unique<FrmTip>(s, topic, std::move(tips)), o);
  });
}

void ShowTipAtStartup(kernel::Session& s) { ShowTip(s, kTipStartup, false); }

}  // namespace quillet::shell
