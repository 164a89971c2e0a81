#pragma once
// VBA run-time errors: number, description and source, thrown where VBA raises one.
#include <exception>
#include <string>

namespace quillet::vba {

// Numbers of the run-time errors the engine raises itself.
enum ErrorNumber : long {
  kErrInvalidCall = 5,          // Invalid procedure call or argument
  kErrOverflow = 6,             // Overflow
  kErrSubscript = 9,            // Subscript out of range
  kErrTypeMismatch = 13,        // Type mismatch
  kErrSubNotDefined = 35,       // Sub or Function not defined
  kErrFileNotFound = 53,        // File not found
  kErrFileAlreadyExists = 58,   // File already exists
  kErrPermissionDenied = 70,    // Permission denied
  kErrPathFileAccess = 75,      // Path/File access error
  kErrPathNotFound = 76,        // Path not found
  kErrObjectNotSet = 91,        // Object variable or With block variable not set
  kErrInvalidPattern = 93,      // Invalid pattern string
  kErrDuplicateKey = 457,       // This key is already associated with an element of this collection
};

class Error : public std::exception {
 public:
  // An empty description takes the standard text of the number.
  explicit Error(long number, std::wstring description = {}, std::wstring source = {});

  long Number() const { return number_; }
  const std::wstring& Description() const { return description_; }
  const std::wstring& Source() const { return source_; }
  void SetSource(std::wstring source) { source_ = std::move(source); }

  // "number: description" in UTF-8.
  const char* what() const noexcept override { return what_.c_str(); }

  // The standard description VBA gives a number, "Application-defined or
  // object-defined error" for numbers it does not know.
  static std::wstring StandardDescription(long number);

 private:
  long number_;
  std::wstring description_;
  std::wstring source_;
  std::string what_;
};

[[noreturn]] void Raise(long number, std::wstring description = {}, std::wstring source = {});

}  // namespace quillet::vba
