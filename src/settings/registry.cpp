#include "settings/registry.h"

#include "kernel/product.h"
#include "ui/control.h"
#include "vba/numbers.h"

namespace quillet::settings {

namespace {
constexpr const wchar_t* kUserSection = L"Quillet";
}

std::wstring RegKeyValueGet(const kernel::Session& s, std::wstring_view key, std::wstring_view name) {
  std::optional<std::wstring> value = s.platform.RegistryValue(key, name);
  if (!value) return {};
  std::size_t nul = value->find(L'\0');
  if (nul != std::wstring::npos) value->resize(nul);
  return *value;
}

std::wstring EditorFontName(const kernel::Session& s) {
  std::wstring face = RegKeyValueGet(s, kEditorRegistryKey, L"FontFace");
  return face.empty() ? L"Courier New" : face;
}

std::optional<double> EditorFontSize(const kernel::Session& s) {
  std::wstring height = RegKeyValueGet(s, kEditorRegistryKey, L"FontHeight");
  if (!vba::IsNumeric(height)) return std::nullopt;
  return vba::CDbl(height);
}

void SetFont(const kernel::Session& s, ui::Control& control) {
  ui::FontInfo font = control.Font();
  font.name = EditorFontName(s);
  if (auto size = EditorFontSize(s)) font.size = *size;
  control.SetFont(font);
}

std::wstring UserSettingGet(const kernel::Session& s, std::wstring_view key, std::wstring_view defaultValue) {
  return s.platform.GetSetting(kernel::kAppName, kUserSection, key, defaultValue);
}

void UserSettingSave(kernel::Session& s, std::wstring_view key, std::wstring_view value) {
  s.platform.SaveSetting(kernel::kAppName, kUserSection, key, value);
}

}  // namespace quillet::settings
