#include "vba/error.h"

#include "vba/encoding.h"

namespace quillet::vba {

Error::Error(long number, std::wstring description, std::wstring source)
    : number_(number),
      description_(description.empty() ? StandardDescription(number) : std::move(description)),
      source_(std::move(source)) {
  what_ = std::to_string(number_) + ": " + ToUtf8(description_);
}

std::wstring Error::StandardDescription(long number) {
  switch (number) {
    case 3: return L"Return without GoSub";
    case 5: return L"Invalid procedure call or argument";
    case 6: return L"Overflow";
    case 7: return L"Out of memory";
    case 9: return L"Subscript out of range";
    case 11: return L"Division by zero";
    case 13: return L"Type mismatch";
    case 35: return L"Sub or Function not defined";
    case 52: return L"Bad file name or number";
    case 53: return L"File not found";
    case 54: return L"Bad file mode";
    case 55: return L"File already open";
    case 57: return L"Device I/O error";
    case 58: return L"File already exists";
    case 61: return L"Disk full";
    case 62: return L"Input past end of file";
    case 67: return L"Too many files";
    case 68: return L"Device unavailable";
    case 70: return L"Permission denied";
    case 71: return L"Disk not ready";
    case 74: return L"Can't rename with different drive";
    case 75: return L"Path/File access error";
    case 76: return L"Path not found";
    case 91: return L"Object variable or With block variable not set";
    case 92: return L"For loop not initialized";
    case 93: return L"Invalid pattern string";
    case 94: return L"Invalid use of Null";
    case 424: return L"Object required";
    case 438: return L"Object doesn't support this property or method";
    case 440: return L"Automation error";
    case 450: return L"Wrong number of arguments or invalid property assignment";
    case 457: return L"This key is already associated with an element of this collection";
    default: return L"Application-defined or object-defined error";
  }
}

void Raise(long number, std::wstring description, std::wstring source) {
  throw Error(number, std::move(description), std::move(source));
}

}  // namespace quillet::vba
