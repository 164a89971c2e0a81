// Loading the settings items from their INI files, and the dialogue of a first start.
#include <memory>
#include <vector>

#include "settings/frm_settings.h"
#include "settings/ini_file.h"
#include "settings/items.h"
#include "settings/settings.h"
#include "kernel/errors.h"
#include "kernel/form_open.h"
#include "kernel/product.h"
#include "ui/ui_host.h"
#include "vba/collection.h"
#include "vba/strings.h"

namespace quillet::settings {

namespace {

const std::vector<std::wstring> kCodeExplorerQuestion{
    L"Quillet Code Explorer is a replacement of the VB Project Explorer",
    L"which let's you find procedures more easily.",
    L"It is best docked to the left side of the code pane.",
    L"",
    L"Availability of the Code Explorer can be set on the Settings dialog (Other)",
    L"The Code Explorer can also be activated from menu: Quillet > Tools",
    L"",
    L"Do you want the Code Explorer dockable window opened?",
};

const std::vector<std::wstring> kShortcutsQuestion{
    L"Quillet Shortcuts and Search is a dockable window to give fast access",
    L"to Quillet code builders and procedures and fragments.",
    L"It is best docked to the right side of the code pane.",
    L"",
    L"Availability of the Shortcuts and Search can be set on the Settings dialog (Other)",
    L"Shortcuts and Search can also be activated from menu: Quillet > Tools",
    L"",
    L"Do you want the Shortcuts and Search dockable window opened?",
};

// Offers a tool window that is switched off; with Yes the setting is on at once, on disk
// too. True when the user said Yes.
bool OfferToolWindow(kernel::Session& s, int item, const std::vector<std::wstring>& question,
                     host::Ptr<host::Window>& window) {
  if (s.settings[item].ToBool()) return false;
  if (s.uiHost.MsgBox(vba::JoinLines(question), ui::vbYesNo | ui::vbQuestion, kernel::kAppName) != ui::vbYes)
    return false;
  s.settings[item] = true;
  SettingWrite(s, item);
  // At the first load the windows do not exist yet; the setting shows them when they do.
  try {
    if (window) window->SetVisible(true);
  } catch (const vba::Error&) {
  }
  return true;
}

void FirstLoadDialogue(kernel::Session& s, bool keyWasMissing) {
  if (keyWasMissing) {
    SettingsDialogOpen(s, true);
    return;
  }
  for (int item : {kCopyright, kDeveloper, kInitials, kOrganization})
    if (!s.settings[item].ToString().empty()) return;
  SettingsDialogOpen(s, true);
  bool yes = OfferToolWindow(s, kViewCodeExplorerWindow, kCodeExplorerQuestion, s.codeExplorerWindow);
  yes = OfferToolWindow(s, kViewQuilletWindow, kShortcutsQuestion, s.directAccessWindow) || yes;
  if (yes) s.uiHost.MsgBox(L"Don't forget to dock it", ui::vbOKOnly, kernel::kAppName);
}

}  // namespace

void SettingsDialogOpen(kernel::Session& s, bool firstRun) {
  auto form = std::make_unique<FrmSettings>(s);
  form->SetFirstRun(firstRun);
  kernel::FormOpenOptions options;
  options.needCodeWindow = false;
  options.callInit = false;
  options.showMode = 1;
  kernel::FormOpen(s, std::move(form), options);
}

void InitializeGlobalVars(kernel::Session& s, bool& firstLoad) {
  bool wantDialogue = firstLoad;
  firstLoad = false;
  kernel::Trap(s, L"modIniVarsQuillet.InitializeGlobalVars", [&] {
    SettingsDefaultsSet(s);
    // Each file once, in the order of its first item.
    vba::Collection<std::wstring> files;
    for (const auto& item : SettingItems()) {
      std::wstring file = IniFileOf(item);
      if (!files.Exists(file)) files.Add(file, file);
    }
    bool keyWasMissing = false;
    for (const auto& file : files) {
      IniFile ini(s);
      ini.SetName(file);
      bool changed = false;
      for (const auto& item : SettingItems()) {
        if (IniFileOf(item) != file) continue;
        const wchar_t* section = SectionOf(item).name;
        if (!ini.ValueExists(section, item.key)) {
          ini.SetValue(section, item.key, IniText(s.settings[item.number]));
          changed = true;
          keyWasMissing = true;
        } else if (auto value = ItemValueFromText(item, ini.Value(section, item.key))) {
          s.settings[item.number] = *value;
        }
      }
      if (changed) ini.Save();
    }
    if (wantDialogue) FirstLoadDialogue(s, keyWasMissing);
  });
}

}  // namespace quillet::settings
