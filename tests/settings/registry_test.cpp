// The editor's registry values and the application's per-user store.
#include <gtest/gtest.h>

#include "settings/registry.h"
#include "settings_fixture.h"
#include "ui/controls.h"
#include "ui/form.h"

namespace quillet::settings::testing {
namespace {

class RegistryTest : public SettingsTest {};

TEST_F(RegistryTest, EditorFontAndUserValues) {
  struct FrmCode : ui::Form {
    explicit FrmCode(ui::UiContext& c) : Form(c, L"frmCode") {}
    ui::TextBox& txtCode = Add<ui::TextBox>(L"txtCode");
  } form(ui);
  SetFont(s, form.txtCode);
  EXPECT_EQ(form.txtCode.Font().name, L"Courier New");
  EXPECT_EQ(form.txtCode.Font().size, 8);  // no height: the control keeps its own

  platform.SetRegistryValue(kEditorRegistryKey, L"FontFace", std::wstring(L"Consolas\0junk", 13));
  platform.SetRegistryValue(kEditorRegistryKey, L"FontHeight", L"11");
  SetFont(s, form.txtCode);
  EXPECT_EQ(form.txtCode.Font().name, L"Consolas");
  EXPECT_EQ(form.txtCode.Font().size, 11);
  EXPECT_EQ(RegKeyValueGet(s, kEditorRegistryKey, L"TabWidth"), L"");

  EXPECT_EQ(UserSettingGet(s, L"Show Tips at Startup", L"0"), L"0");
  UserSettingSave(s, L"Show Tips at Startup", L"-1");
  EXPECT_EQ(platform.GetSetting(L"Quillet", L"Quillet", L"show tips at startup"), L"-1");
}

}  // namespace
}  // namespace quillet::settings::testing
