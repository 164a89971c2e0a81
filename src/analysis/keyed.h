#pragma once
// How the scans fill keyed collections: a name that is already there keeps its first
// entry, and the repeated key (error 457) is passed over without a report.
#include <exception>
#include <string_view>
#include <utility>

#include "kernel/errors.h"
#include "vba/collection.h"
#include "vba/error.h"

namespace quillet::analysis {

// Adds under `key` unless the key is taken; false when it was.
template <class T>
bool AddKeepingFirst(vba::Collection<T>& items, T item, std::wstring_view key) {
  if (!key.empty() && items.Exists(key)) return false;
  items.Add(std::move(item), key);
  return true;
}

// Runs `body`; a repeated key ends it silently, any other error goes on to the caller.
template <class F>
void PassOverDuplicates(F&& body) {
  try {
    body();
  } catch (const vba::Error& e) {
    if (e.Number() != vba::kErrDuplicateKey) throw;
  }
}

// Runs `body` as a trapping procedure of the scans: error 457 ends it silently, any other
// error is reported with `where`. True when the body ran to its end.
template <class F>
bool TrapPassingDuplicates(kernel::Session& s, std::wstring_view where, F&& body) {
  try {
    body();
    return true;
  } catch (const vba::Error& e) {
    if (e.Number() != vba::kErrDuplicateKey) kernel::HandleError(s, e, 0, where);
  } catch (const std::exception& e) {
    kernel::HandleError(s, kernel::InternalError(e), 0, where);
  }
  return false;
}

}  // namespace quillet::analysis
