#pragma once
// What the system needs of the operating system, beside the editor: clipboard, per-user
// values, folders and files, shell-open, keystrokes, mouse pointer, focus.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "io/filesystem.h"

namespace quillet::host {

// Clipboard formats, with the numbers the system uses.
enum ClipboardFormat : int {
  kCfText = 1,
  kCfBitmap = 2,
  kCfMetafile = 3,
  kCfDib = 8,
  kCfPalette = 9,
  kCfEnhMetafile = 14,
  kCfFiles = 15,
  kCfRtf = -16639,
  kCfLink = -16640,
};

enum MousePointer : int { kPointerDefault = 0, kPointerHourglass = 11 };

class Platform {
 public:
  virtual ~Platform() = default;

  // Clipboard.
  virtual void ClipboardClear() = 0;
  virtual bool ClipboardHasFormat(int format) const = 0;
  virtual void ClipboardSetText(std::wstring_view text, int format = kCfText) = 0;
  virtual std::wstring ClipboardGetText(int format = kCfText) const = 0;
  // Pictures, file lists, links and palettes as opaque data.
  virtual void ClipboardSetData(int format, std::string_view data) = 0;
  virtual std::string ClipboardGetData(int format) const = 0;

  // Per-user registry values under HKEY_CURRENT_USER; nullopt when missing.
  virtual std::optional<std::wstring> RegistryValue(std::wstring_view key, std::wstring_view name) const = 0;
  // The per-user store of applications (GetSetting/SaveSetting/DeleteSetting).
  virtual std::wstring GetSetting(std::wstring_view app, std::wstring_view section, std::wstring_view key,
                                  std::wstring_view defaultValue = {}) const = 0;
  virtual void SaveSetting(std::wstring_view app, std::wstring_view section, std::wstring_view key,
                           std::wstring_view value) = 0;
  virtual void DeleteSetting(std::wstring_view app, std::wstring_view section, std::wstring_view key) = 0;

  // Folders, with their final "\".
  virtual std::wstring ProgramFolder() const = 0;
  virtual std::wstring TempFolder() const = 0;
  virtual std::wstring CurrentDirectory() const = 0;
  virtual io::FileSystem& Files() = 0;
  const io::FileSystem& Files() const { return const_cast<Platform*>(this)->Files(); }

  // Opens a document or web address with the verb "open".
  virtual void ShellOpen(std::wstring_view target) = 0;

  // Keystrokes in the host's syntax ("^v", "{Down 2}", " {BACKSPACE}"). Without `wait`
  // they are queued and reach the window with the focus when the running event returns;
  // with `wait` they are applied before the call returns.
  virtual void SendKeys(std::wstring_view keys, bool wait) = 0;
  // Applies queued keystrokes now (what yielding to the host does).
  virtual void DoEvents() = 0;

  virtual int MousePointer() const = 0;
  virtual void SetMousePointer(int pointer) = 0;

  // Windows and focus, by handle; 0 is none.
  virtual long GetFocus() const = 0;
  virtual void SetFocus(long hwnd) = 0;
  virtual long GetActiveWindow() const = 0;
  virtual long GetForegroundWindow() const = 0;
  virtual std::wstring GetWindowText(long hwnd) const = 0;
  virtual long FindWindow(std::wstring_view className, std::wstring_view title) const = 0;
  virtual void CloseWindow(long hwnd) = 0;  // minimises
  virtual void LockWindowUpdate(long hwnd) = 0;
};

}  // namespace quillet::host
