#pragma once
// The platform of the in-memory editor: clipboard, registry and per-user store in memory,
// files through an io::FileSystem, keystrokes queued and applied to the editor's window
// with the focus.
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "hostmodel/keystrokes.h"
#include "hostmodel/platform.h"
#include "vba/text.h"

namespace quillet::host {

class MemoryVBE;

class MemoryPlatform : public Platform {
 public:
  explicit MemoryPlatform(std::unique_ptr<io::FileSystem> files,
                          std::wstring programFolder = L"C:\\Program Files\\Quillet\\",
                          std::wstring tempFolder = L"C:\\Temp\\");

  // Clipboard.
  void ClipboardClear() override { clipboard_.clear(); }
  bool ClipboardHasFormat(int format) const override { return clipboard_.count(format) > 0; }
  void ClipboardSetText(std::wstring_view text, int format = kCfText) override;
  std::wstring ClipboardGetText(int format = kCfText) const override;
  void ClipboardSetData(int format, std::string_view data) override;
  std::string ClipboardGetData(int format) const override;

  // Registry and per-user store.
  std::optional<std::wstring> RegistryValue(std::wstring_view key, std::wstring_view name) const override;
  std::wstring GetSetting(std::wstring_view app, std::wstring_view section, std::wstring_view key,
                          std::wstring_view defaultValue = {}) const override;
  void SaveSetting(std::wstring_view app, std::wstring_view section, std::wstring_view key,
                   std::wstring_view value) override;
  void DeleteSetting(std::wstring_view app, std::wstring_view section, std::wstring_view key) override;

  std::wstring ProgramFolder() const override { return programFolder_; }
  std::wstring TempFolder() const override { return tempFolder_; }
  std::wstring CurrentDirectory() const override { return currentDirectory_; }
  io::FileSystem& Files() override { return *files_; }
  void ShellOpen(std::wstring_view target) override;

  void SendKeys(std::wstring_view keys, bool wait) override;
  void DoEvents() override;

  int MousePointer() const override { return mousePointer_; }
  void SetMousePointer(int pointer) override { mousePointer_ = pointer; }

  long GetFocus() const override { return focus_; }
  void SetFocus(long hwnd) override;
  long GetActiveWindow() const override { return foreground_; }
  long GetForegroundWindow() const override { return foreground_; }
  std::wstring GetWindowText(long hwnd) const override;
  long FindWindow(std::wstring_view className, std::wstring_view title) const override;
  void CloseWindow(long hwnd) override;
  void LockWindowUpdate(long hwnd) override {}

  // Set-up and inspection.
  void Attach(MemoryVBE* vbe) { vbe_ = vbe; }
  // The editor moved the focus to one of its windows.
  void NoteFocus(long hwnd) { focus_ = hwnd; }
  void SetRegistryValue(std::wstring key, std::wstring name, std::wstring value);
  void RemoveRegistryValue(std::wstring_view key, std::wstring_view name);
  void SetCurrentDirectory(std::wstring dir) { currentDirectory_ = std::move(dir); }
  // The host's windows lie behind another program: focus is refused, and neither the
  // main window nor an editor window is in front.
  void SetHostInBack(bool inBack);
  bool HostInBack() const { return hostInBack_; }
  // Windows outside the editor (another program, the Outlook main window), by class.
  long AddForeignWindow(std::wstring className, std::wstring title);
  bool ForeignWindowMinimised(long hwnd) const;
  // Everything that leaves the editor for the outside world, in order.
  struct Event {
    std::string kind;  // "sendkeys", "shellOpen"
    std::wstring text;
  };
  std::function<void(const Event&)> onEvent;
  // Per-user store, for dumps.
  const std::map<std::wstring, std::wstring, vba::TextLess>& Settings() const { return settings_; }
  std::size_t PendingKeys() const { return queue_.size(); }

 private:
  void Apply(const std::vector<Key>& keys);
  static std::wstring SettingKey(std::wstring_view app, std::wstring_view section, std::wstring_view key);

  std::unique_ptr<io::FileSystem> files_;
  std::wstring programFolder_, tempFolder_, currentDirectory_ = L"C:\\";
  MemoryVBE* vbe_ = nullptr;
  struct ClipEntry {
    std::wstring text;
    std::string data;
  };
  std::map<int, ClipEntry> clipboard_;
  std::map<std::wstring, std::wstring, vba::TextLess> registry_;
  std::map<std::wstring, std::wstring, vba::TextLess> settings_;
  std::vector<Key> queue_;
  int mousePointer_ = kPointerDefault;
  long focus_ = 0;
  long foreground_ = 0;
  bool hostInBack_ = false;
  struct Foreign {
    std::wstring className, title;
    bool minimised = false;
  };
  std::map<long, Foreign> foreign_;
  long nextForeign_ = 0x9000;
};

}  // namespace quillet::host
