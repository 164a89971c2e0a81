#include "hostmodel/memory_platform.h"

#include "hostmodel/memory_vbe.h"
#include "vba/text.h"

namespace quillet::host {

MemoryPlatform::MemoryPlatform(std::unique_ptr<io::FileSystem> files, std::wstring programFolder,
                               std::wstring tempFolder)
    : files_(std::move(files)), programFolder_(std::move(programFolder)), tempFolder_(std::move(tempFolder)) {}

void MemoryPlatform::ClipboardSetText(std::wstring_view text, int format) { clipboard_[format].text = text; }

std::wstring MemoryPlatform::ClipboardGetText(int format) const {
  auto it = clipboard_.find(format);
  return it == clipboard_.end() ? std::wstring() : it->second.text;
}

void MemoryPlatform::ClipboardSetData(int format, std::string_view data) { clipboard_[format].data = data; }

std::string MemoryPlatform::ClipboardGetData(int format) const {
  auto it = clipboard_.find(format);
  return it == clipboard_.end() ? std::string() : it->second.data;
}

std::optional<std::wstring> MemoryPlatform::RegistryValue(std::wstring_view key, std::wstring_view name) const {
  auto it = registry_.find(std::wstring(key) + L"\\\\" + std::wstring(name));
  if (it == registry_.end()) return std::nullopt;
  return it->second;
}

void MemoryPlatform::SetRegistryValue(std::wstring key, std::wstring name, std::wstring value) {
  registry_[key + L"\\\\" + name] = std::move(value);
}

void MemoryPlatform::RemoveRegistryValue(std::wstring_view key, std::wstring_view name) {
  registry_.erase(std::wstring(key) + L"\\\\" + std::wstring(name));
}

std::wstring MemoryPlatform::SettingKey(std::wstring_view app, std::wstring_view section, std::wstring_view key) {
  return std::wstring(app) + L"\\" + std::wstring(section) + L"\\" + std::wstring(key);
}

std::wstring MemoryPlatform::GetSetting(std::wstring_view app, std::wstring_view section, std::wstring_view key,
                                        std::wstring_view defaultValue) const {
  auto it = settings_.find(SettingKey(app, section, key));
  return it == settings_.end() ? std::wstring(defaultValue) : it->second;
}

void MemoryPlatform::SaveSetting(std::wstring_view app, std::wstring_view section, std::wstring_view key,
                                 std::wstring_view value) {
  settings_[SettingKey(app, section, key)] = value;
}

void MemoryPlatform::DeleteSetting(std::wstring_view app, std::wstring_view section, std::wstring_view key) {
  settings_.erase(SettingKey(app, section, key));
}

void MemoryPlatform::ShellOpen(std::wstring_view target) {
  if (onEvent) onEvent({"shellOpen", std::wstring(target)});
}

void MemoryPlatform::SendKeys(std::wstring_view keys, bool wait) {
  std::vector<Key> parsed = ParseKeys(keys);
  if (onEvent) onEvent({"sendkeys", std::wstring(keys)});
  if (wait) {
    // Keys sent with wait land behind those already queued.
    queue_.insert(queue_.end(), parsed.begin(), parsed.end());
    DoEvents();
  } else {
    queue_.insert(queue_.end(), parsed.begin(), parsed.end());
  }
}

void MemoryPlatform::DoEvents() {
  std::vector<Key> keys;
  keys.swap(queue_);
  Apply(keys);
}

void MemoryPlatform::Apply(const std::vector<Key>& keys) {
  if (!vbe_) return;
  for (const Key& k : keys) vbe_->ApplyKey(focus_, k);
}

void MemoryPlatform::SetFocus(long hwnd) {
  if (hostInBack_) return;
  // Focusing one of the editor's windows makes it the editor's active window.
  if (vbe_)
    if (auto w = vbe_->WindowByHandle(hwnd); w && w->Type() != kMainWindow) return vbe_->FocusWindow(*w);
  focus_ = hwnd;
}

void MemoryPlatform::SetHostInBack(bool inBack) {
  hostInBack_ = inBack;
  if (inBack) {
    static const long kOtherProgram = 0x8000;
    foreground_ = kOtherProgram;
  } else {
    foreground_ = vbe_ ? vbe_->MainWindow()->HWnd() : 0;
  }
}

std::wstring MemoryPlatform::GetWindowText(long hwnd) const {
  if (vbe_)
    if (auto w = vbe_->WindowByHandle(hwnd)) return w->Caption();
  auto it = foreign_.find(hwnd);
  return it == foreign_.end() ? std::wstring() : it->second.title;
}

long MemoryPlatform::AddForeignWindow(std::wstring className, std::wstring title) {
  long h = nextForeign_++;
  foreign_[h] = {std::move(className), std::move(title), false};
  return h;
}

bool MemoryPlatform::ForeignWindowMinimised(long hwnd) const {
  auto it = foreign_.find(hwnd);
  return it != foreign_.end() && it->second.minimised;
}

long MemoryPlatform::FindWindow(std::wstring_view className, std::wstring_view title) const {
  for (const auto& [h, w] : foreign_)
    if ((className.empty() || vba::EqualsText(w.className, className)) && (title.empty() || w.title == title))
      return h;
  return 0;
}

void MemoryPlatform::CloseWindow(long hwnd) {
  auto it = foreign_.find(hwnd);
  if (it != foreign_.end()) it->second.minimised = true;
}

}  // namespace quillet::host
