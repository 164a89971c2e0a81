#include "ui/keyed_items.h"

#include "vba/error.h"

namespace quillet::ui {

void RaiseIndexOutOfBounds(std::wstring_view source) {
  vba::Raise(35600, L"Index out of bounds", std::wstring(source));
}

void RaiseElementNotFound(std::wstring_view source) {
  vba::Raise(35601, L"Element not found", std::wstring(source));
}

void RaiseKeyNotUnique(std::wstring_view source) {
  vba::Raise(35602, L"Key is not unique in collection", std::wstring(source));
}

}  // namespace quillet::ui
