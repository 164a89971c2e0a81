#include "kernel/errors.h"

#include "hostmodel/platform.h"
#include "kernel/position.h"
#include "kernel/product.h"
#include "kernel/timer_form.h"
#include "ui/ui_host.h"
#include "vba/encoding.h"
#include "version.h"

namespace quillet::kernel {

vba::Error InternalError(const std::exception& e) {
  return vba::Error(51, L"Internal error: " + vba::FromUtf8(e.what()));
}

void HandleError(Session& s, const vba::Error& err, long line, std::wstring_view where, std::wstring_view module,
                 std::wstring_view procedure) {
  std::wstring title = L"Quillet." + s.currentCommand + L" Error";
  std::wstring text = std::to_wstring(err.Number()) + L": " + err.Description();
  if (line > 0 || !module.empty() || !procedure.empty()) {
    text += L"\r\nin ";
    text += module;
    text += procedure;
    if (line > 0) text += L" line " + std::to_wstring(line);
  }
  if (!where.empty()) {
    text += L"\r\n";
    text += where;
  }
  if (s.testingMode) s.uiHost.MsgBox(text, ui::vbOKOnly | ui::vbExclamation, title);
  ImmediateMessageAdd(s, title + L" - " + text, false);
}

namespace {

std::wstring Banner() {
  return std::wstring(L"[please report to ") + kSupportAddress + L"]\r\nVersion: " + std::to_wstring(kVersionMajor) +
         L"." + std::to_wstring(kVersionMinor) + L"." + std::to_wstring(kVersionRevision) + L"\r\n";
}

// Pastes `text` into the Immediate window through the clipboard. False when the editor
// would not give the window the focus; with `retry` a second try is then armed.
bool Deliver(Session& s, const std::wstring& text, bool retry) {
  host::Platform& platform = s.platform;
  long savedFocus = platform.GetFocus();
  ClipboardContent clip = ClipboardSave(platform);
  bool delivered = false;
  // From here on a failure is passed over: the text stays where it was for the next try.
  try {
    if (s.vbe) {
      host::Ptr<host::Windows> windows = s.vbe->Windows();
      bool haveHandle = false;
      for (long i = 1; i <= windows->Count() && !haveHandle; ++i) {
        host::Ptr<host::Window> w = windows->Item(i);
        if (w->Type() != host::kImmediateWindow) continue;
        if (!w->Visible()) w->SetVisible(true);
        s.immediateActivating = true;
        w->SetFocus();
        if (s.immediateWindowHandle == 0) s.immediateWindowHandle = ImmediateWindowHandleGet(s);
        haveHandle = s.immediateWindowHandle > 0;
      }
      if (haveHandle) {
        if (platform.GetFocus() == s.immediateWindowHandle) {
          platform.ClipboardClear();
          platform.ClipboardSetText(text);
          if (platform.ClipboardHasFormat(host::kCfText) && !text.empty()) platform.SendKeys(L"^v", true);
          delivered = true;
        } else if (retry && s.timerForm && s.timerForm->Timer3Interval() == 0) {
          // The editor would not let the window take the focus: try again in a second.
          s.timerForm->SetTimer3Interval(1000);
        }
      }
    }
  } catch (const vba::Error&) {
  } catch (const std::exception&) {
  }
  platform.SetFocus(savedFocus);
  s.immediateActivating = false;
  ClipboardRestore(platform, clip);
  return delivered;
}

}  // namespace

bool ImmediateMessageAdd(Session& s, std::wstring_view text, bool retry) {
  if (!retry) {
    if (s.pendingMessage.empty()) s.pendingMessage = Banner();
    s.pendingMessage += text;
    s.pendingMessage += L"\r\n";
  }
  if (!Deliver(s, s.pendingMessage, true)) return false;
  s.pendingMessage.clear();
  return true;
}

void NotAvailable(Session& s, std::wstring_view what) {
  if (!s.announcedUnavailable.insert(std::wstring(what)).second) return;
  Deliver(s, L"Quillet: " + std::wstring(what) + L" is not available in this version.\r\n", false);
}

ClipboardContent ClipboardSave(host::Platform& platform) {
  static constexpr int kOrder[] = {host::kCfRtf,  host::kCfText,  host::kCfBitmap,   host::kCfDib,    host::kCfEnhMetafile,
                                   host::kCfFiles, host::kCfLink, host::kCfMetafile, host::kCfPalette};
  ClipboardContent c;
  for (int format : kOrder) {
    if (!platform.ClipboardHasFormat(format)) continue;
    c.format = format;
    if (format == host::kCfRtf) {
      c.data = platform.ClipboardGetText(host::kCfRtf);
      c.text = platform.ClipboardGetText(host::kCfText);
    } else if (format == host::kCfText) {
      c.data = platform.ClipboardGetText(host::kCfText);
    } else {
      c.bytes = platform.ClipboardGetData(format);
    }
    break;
  }
  return c;
}

void ClipboardRestore(host::Platform& platform, const ClipboardContent& saved) {
  if (saved.format == 0) return;
  platform.ClipboardClear();
  if (saved.format == host::kCfRtf) {
    platform.ClipboardSetText(saved.data, host::kCfRtf);
    platform.ClipboardSetText(saved.text, host::kCfText);
  } else if (saved.format == host::kCfText) {
    platform.ClipboardSetText(saved.data, host::kCfText);
  } else {
    platform.ClipboardSetData(saved.format, saved.bytes);
  }
}

}  // namespace quillet::kernel
