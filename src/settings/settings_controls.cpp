#include "settings/settings_controls.h"

#include <optional>
#include <vector>

#include "settings/folders.h"
#include "settings/ini_file.h"
#include "settings/items.h"
#include "settings/settings.h"
#include "kernel/errors.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "vba/error.h"
#include "vba/numbers.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::settings {

namespace {

constexpr long kErrControlNotFound = 730;
constexpr long kErrNotSupported = 438;
constexpr const wchar_t* kPrefixSection = L"Prefix";

// The control that shows an item; error 730 when the form has none of that name.
ui::Control& ItemControl(ui::Form& form, const SettingItem& item) {
  std::wstring name = ItemControlName(item);
  ui::Control* control = form.Find(name);
  if (!control) vba::Raise(kErrControlNotFound, L"Control '" + name + L"' not found");
  return *control;
}

ui::ComboBox& AutoPrefixCombo(ui::Control& control) {
  auto* combo = dynamic_cast<ui::ComboBox*>(&control);
  if (!combo) vba::Raise(kErrNotSupported, L"Object doesn't support this property or method");
  return *combo;
}

bool IsCommentLine(std::wstring_view line) { return vba::Left(vba::Trim(line), 1) == L"#"; }

}  // namespace

int TruthValue(std::wstring_view text, bool asCheck) {
  std::wstring t = vba::LCase(text);
  bool truth = t == L"true" || t == L"yes" || t == L"-1" || t == L"1";
  if (!truth) return 0;
  return asCheck ? 1 : -1;
}

void FormLoadSettings(kernel::Session& s, ui::Form& form) {
  for (const auto& item : SettingItems()) {
    kernel::Trap(s, L"modIniVarsQuillet.Form_Load_Settings", [&] {
      ui::Control& control = ItemControl(form, item);
      std::wstring text = IniText(s.settings[item.number]);
      if (auto* check = dynamic_cast<ui::CheckBox*>(&control)) {
        check->SetValue(TruthValue(text, true));
      } else if (item.number == kAutoPrefixVariableName) {
        ui::ComboBox& combo = AutoPrefixCombo(control);
        combo.Clear();
        for (int mode = kNoAutoPrefix; mode <= kAutoPrefixBeforeCapital; ++mode) combo.AddItem(AutoPrefixName(mode));
        combo.SetListIndex(vba::CInt(vba::CDbl(text)));
      } else if (auto* edit = dynamic_cast<ui::EditControl*>(&control)) {
        edit->SetText(text);
      } else {
        vba::Raise(kErrNotSupported, L"Object doesn't support this property or method");
      }
    });
  }
}

void FormSaveSettings(kernel::Session& s, ui::Form& form) {
  const wchar_t* where = L"modIniVarsQuillet.Form_Save_Settings";
  // One file stays open while the items run through it; the items of the prefix
  // standards lie between those of the user's file, so each change of file saves.
  IniFile ini(s);
  std::wstring attached;
  for (const auto& item : SettingItems()) {
    kernel::Trap(s, where, [&] {
      std::wstring file = IniFileOf(item);
      if (!vba::EqualsText(file, attached)) {
        if (!ini.Name().empty()) ini.Save();
        ini.SetName(file);
        attached = file;
      }
      ui::Control& control = ItemControl(form, item);
      std::wstring text;
      if (auto* check = dynamic_cast<ui::CheckBox*>(&control)) {
        text = check->Value() == 1 ? L"-1" : L"0";
      } else if (item.number == kAutoPrefixVariableName) {
        text = std::to_wstring(AutoPrefixCombo(control).ListIndex());
      } else if (auto* edit = dynamic_cast<ui::EditControl*>(&control)) {
        text = edit->Text();
      } else {
        vba::Raise(kErrNotSupported, L"Object doesn't support this property or method");
      }
      ini.SetValue(SectionOf(item).name, item.key, text);
    });
  }
  kernel::Trap(s, where, [&] {
    if (!ini.Name().empty()) ini.Save();
    bool firstLoad = false;
    InitializeGlobalVars(s, firstLoad);
  });
}

std::wstring ControlsState(const ui::Form& form) {
  std::wstring state;
  for (const auto& control : form.Controls()) {
    if (auto* check = dynamic_cast<const ui::CheckBox*>(control.get()))
      state += std::to_wstring(check->Value());
    else if (dynamic_cast<const ui::TextBox*>(control.get()) || dynamic_cast<const ui::ComboBox*>(control.get()))
      state += vba::Trim(static_cast<const ui::EditControl&>(*control).Text());
  }
  return state;
}

std::wstring TypePrefixText(kernel::Session& s) {
  std::wstring path = PrefixStandardsFileGet(s);
  if (path.empty() || !s.platform.Files().FileExists(path)) return {};
  IniFile ini(s);
  ini.SetName(path);
  if (ini.Name().empty() || !ini.SectionExists(kPrefixSection)) return {};
  const IniFileSection::ItemCollection* items = ini.Sections().Item(kPrefixSection)->Items();
  if (!items) return {};
  std::wstring text;
  for (const auto& item : *items) {
    text += item->name;
    if (!IsCommentLine(item->name)) text += L"=" + item->value;
    text += L"\r\n";
  }
  return text;
}

void TypePrefixTextSave(kernel::Session& s, std::wstring_view text) {
  std::wstring path = PrefixStandardsFileGet(s);
  if (path.empty() || !s.platform.Files().FileExists(path)) return;
  IniFile ini(s);
  ini.SetName(path);
  if (ini.Name().empty()) return;
  if (ini.SectionExists(kPrefixSection))
    if (IniFileSection::ItemCollection* items = ini.Sections().Item(kPrefixSection)->Items()) items->Clear();
  // Lines typed into a text box end in CR LF; a bare LF or CR, as other front-ends send,
  // ends a line as well.
  for (const std::wstring& line : vba::SplitLines(text)) {
    if (vba::Trim(line).empty()) continue;
    if (IsCommentLine(line)) {
      ini.SetValue(kPrefixSection, vba::Trim(line), L"");
      continue;
    }
    std::vector<std::wstring> parts = vba::Split(line, L"=");
    std::wstring key = vba::Trim(parts[0]);
    std::wstring value = parts.size() > 1 ? vba::Trim(parts[1]) : std::wstring();
    if (key.empty()) continue;
    ini.SetValue(kPrefixSection, key, value);
  }
  ini.Save();
  TypePrefixFromIniFile(s);
}

}  // namespace quillet::settings
