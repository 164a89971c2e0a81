#pragma once
// A session's worth of ui for the tests: a test host, a clock, the context, and a small
// dialog with one control of most kinds that records the events it sees.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hostmodel/clock.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "support/test_ui_host.h"
#include "ui/ui_context.h"
#include "ui/user_input.h"

namespace quillet::ui::testing {

// The kind of dialog the builders are: a name, a type, options, OK and Cancel.
class FrmSample : public Form {
 public:
  explicit FrmSample(UiContext& c, std::wstring name = L"frmSample") : Form(c, std::move(name)) {
    SetCaption(L"Sample Builder");
    cmdOK.SetCaption(L"OK");
    cmdOK.SetDefault(true);
    cmdCancel.SetCaption(L"Cancel");
    cmdCancel.SetCancel(true);
    chkStatic.SetCaption(L"&Static");
    cboType.SetStyle(vbComboDropdownList);
    for (const wchar_t* t : {L"Sub", L"Function", L"Property"}) cboType.AddItem(t);
    optPublic.SetCaption(L"Public");
    optPrivate.SetCaption(L"Private");
    optOne.SetCaption(L"One");
    optTwo.SetCaption(L"Two");

    OnLoad = [this] { Record(L"Load"); };
    OnActivate = [this] { Record(L"Activate"); };
    OnDeactivate = [this] { Record(L"Deactivate"); };
    OnQueryUnload = [this](int& cancel, int mode) {
      Record(L"QueryUnload " + std::to_wstring(mode));
      cancel = refuseUnload ? 1 : 0;
    };
    OnUnload = [this](int&) { Record(L"Unload"); };
    txtName.OnChange = [this] { Record(L"txtName_Change " + txtName.Text()); };
    txtName.OnGotFocus = [this] { Record(L"txtName_GotFocus"); };
    txtName.OnLostFocus = [this] { Record(L"txtName_LostFocus"); };
    txtName.OnValidate = [this](bool& cancel) {
      Record(L"txtName_Validate");
      cancel = txtName.Text().empty() && requireName;
    };
    txtName.OnKeyPress = [this](int& key) {
      if (key == '!') key = 0;  // the name takes no exclamation marks
    };
    cboType.OnClick = [this] {
      if (updating) return;
      Record(L"cboType_Click " + cboType.Text());
    };
    chkStatic.OnClick = [this] {
      if (updating) return;
      Record(L"chkStatic_Click " + std::to_wstring(chkStatic.Value()));
    };
    chkStatic.OnGotFocus = [this] { Record(L"chkStatic_GotFocus"); };
    optPublic.OnClick = [this] { Record(L"optPublic_Click"); };
    optPrivate.OnClick = [this] { Record(L"optPrivate_Click"); };
    optOne.OnClick = [this] { Record(L"optOne_Click"); };
    cmdOK.OnClick = [this] {
      Record(L"cmdOK_Click");
      if (hideOnOk) Hide();
    };
    cmdCancel.OnClick = [this] {
      Record(L"cmdCancel_Click");
      Unload();
    };
  }

  void Record(std::wstring what) { events.push_back(std::move(what)); }
  // Fills the check box from settings without its handler acting on it.
  void InitFromSettings(int isStatic) {
    ScopedFlag quiet(updating);
    chkStatic.SetValue(isStatic);
  }

  TextBox& txtName = Add<TextBox>(L"txtName");
  ComboBox& cboType = Add<ComboBox>(L"cboType");
  CheckBox& chkStatic = Add<CheckBox>(L"chkStatic");
  OptionButton& optPublic = Add<OptionButton>(L"optPublic");
  OptionButton& optPrivate = Add<OptionButton>(L"optPrivate");
  Frame& fraCount = Add<Frame>(L"fraCount");
  OptionButton& optOne = Add<OptionButton>(L"optOne", &fraCount);
  OptionButton& optTwo = Add<OptionButton>(L"optTwo", &fraCount);
  CommandButton& cmdOK = Add<CommandButton>(L"cmdOK");
  CommandButton& cmdCancel = Add<CommandButton>(L"cmdCancel");

  std::vector<std::wstring> events;
  bool updating = false;
  bool requireName = false;
  bool refuseUnload = false;
  bool hideOnOk = true;
};

class UiTest : public ::testing::Test {
 protected:
  TestUiHost host;
  host::Clock clock;
  UiContext context{host, clock};
};

}  // namespace quillet::ui::testing
