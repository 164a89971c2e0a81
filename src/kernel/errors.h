#pragma once
// The one error reporter. A failure inside the add-in must not stop the host: procedures
// trap their errors and hand them here; the report goes to the editor's Immediate window
// (pasted through the clipboard) and, in testing mode, to a message box as well.
#include <exception>
#include <string>
#include <string_view>

#include "kernel/session.h"
#include "vba/error.h"

namespace quillet::kernel {

// Reports an error. `where` is "module.procedure"; `line` the error line or 0.
void HandleError(Session& s, const vba::Error& err, long line, std::wstring_view where,
                 std::wstring_view module = {}, std::wstring_view procedure = {});

// Adds `text` to the pending message and tries to deliver it; with `retry` only tries
// again. True when the message reached the Immediate window.
bool ImmediateMessageAdd(Session& s, std::wstring_view text, bool retry);

// Says once per session, in the Immediate window, that a command of a later version is
// not there yet.
void NotAvailable(Session& s, std::wstring_view what);

// What the clipboard held, kept across work that needs the clipboard itself.
struct ClipboardContent {
  int format = 0;       // the first format found, 0 when the clipboard was empty
  std::wstring data;    // text or rich text
  std::wstring text;    // the plain text beside rich text
  std::string bytes;    // pictures, file lists, links, palettes
};
ClipboardContent ClipboardSave(host::Platform& platform);
void ClipboardRestore(host::Platform& platform, const ClipboardContent& saved);

// An exception that is no VBA error, as the error "51: Internal error" with its text.
vba::Error InternalError(const std::exception& e);

// Runs `body` the way every procedure of the system runs: an error is reported with
// `where` and ends the procedure. True when the body ran to its end.
template <class F>
bool Trap(Session& s, std::wstring_view where, F&& body) {
  try {
    body();
    return true;
  } catch (const vba::Error& e) {
    HandleError(s, e, 0, where);
  } catch (const std::exception& e) {
    HandleError(s, InternalError(e), 0, where);
  }
  return false;
}

}  // namespace quillet::kernel
