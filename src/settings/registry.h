#pragma once
// Values kept outside the INI files: the editor's own per-user registry values, and the
// per-user store of the application "Quillet" (section "Quillet").
#include <optional>
#include <string>
#include <string_view>

#include "kernel/session.h"

namespace quillet::ui {
class Control;
}

namespace quillet::settings {

// The editor's key under HKEY_CURRENT_USER.
inline constexpr const wchar_t* kEditorRegistryKey = L"Software\\Microsoft\\VBA\\6.0\\Common";

// A per-user registry value, cut at its first NUL; empty when missing.
std::wstring RegKeyValueGet(const kernel::Session& s, std::wstring_view key, std::wstring_view name);
// The editor's font for code shown in dialogs: "FontFace", else "Courier New"; and
// "FontHeight" when it is there and is a number.
std::wstring EditorFontName(const kernel::Session& s);
std::optional<double> EditorFontSize(const kernel::Session& s);
// Gives a control the editor's font.
void SetFont(const kernel::Session& s, ui::Control& control);

// The application's per-user values ("ToolbarPos", "Show Tips at Startup", ...).
std::wstring UserSettingGet(const kernel::Session& s, std::wstring_view key, std::wstring_view defaultValue = {});
void UserSettingSave(kernel::Session& s, std::wstring_view key, std::wstring_view value);

}  // namespace quillet::settings
