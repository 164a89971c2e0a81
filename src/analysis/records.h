#pragma once
// The declaration records: one parsed variable, one parsed constant, an enum with its
// members, a user-defined type with its fields, and the named collections that hold them.
// The scanners fill them from source text and type libraries; the builders create them.
// Records live in keyed collections of shared pointers, so one record can stand in two
// collections at once (an enum member is also a constant) and the first entry under a
// name keeps it.
#include <memory>
#include <string>
#include <string_view>

#include "analysis/shared_text.h"
#include "vba/collection.h"

namespace quillet::analysis {

// The type a type character stands for ("!" Single, "#" Double, "$" String, "%" Integer,
// "&" Long, "@" Currency); "" for any other character.
std::wstring TypeOfTypeChar(wchar_t c);
// True for one of the six type characters.
bool IsTypeChar(wchar_t c);

// A variable declaration, read from the text behind its keyword: "a(1 To 3) As Long".
class clsVariable {
 public:
  SharedText ModuleName;
  std::wstring Name;           // without a type character
  std::wstring Type_;          // "Variant" when the text names none
  bool IsArray = false;        // "(" follows the name
  std::wstring Bounds;         // from "(" to ")", both included

  void init(std::wstring_view text);
};

// A constant declaration, read from the text behind "Const": "x As Long = 5", or a member
// of an enum.
class clsConstant {
 public:
  SharedText ModuleName;
  std::wstring Name;
  SharedText Project;          // the owning project or library
  SharedText EnumName;         // set for the member of an enum
  SharedText HelpStr;
  std::wstring Type_;
  std::wstring Value;          // the text behind "="

  bool EnumMember() const { return !EnumName.empty(); }
  void init(std::wstring_view text);
  void Terminate() {}
};

using Variables = vba::Collection<std::shared_ptr<clsVariable>>;
using Constants = vba::Collection<std::shared_ptr<clsConstant>>;

// The item list that enums, types and their named collections share: items in order,
// each under an optional key compared without regard to case.
template <class T>
class RecordList {
 public:
  using Items_ = vba::Collection<std::shared_ptr<T>>;

  // An existing key raises error 457.
  void Add(std::shared_ptr<T> item, std::wstring_view key = {}) { items_.Add(std::move(item), key); }
  // By 1-based position or by key; a missing one raises error 9 or 5.
  std::shared_ptr<T>& Item(long index) { return items_.Item(index); }
  std::shared_ptr<T>& Item(std::wstring_view key) { return items_.Item(key); }
  // Lookup whose failure means absence.
  std::shared_ptr<T> Find(std::wstring_view key) const {
    const std::shared_ptr<T>* p = items_.Find(key);
    return p ? *p : nullptr;
  }
  long Count() const { return items_.Count(); }
  void Remove(long index) { items_.Remove(index); }
  void Remove(std::wstring_view key) { items_.Remove(key); }
  Items_& Items() { return items_; }
  const Items_& Items() const { return items_; }
  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 protected:
  Items_ items_;
};

// An enum known to the system, its members in declaration order.
class clsEnum : public RecordList<clsConstant> {
 public:
  std::wstring Name;
  SharedText Module;
  SharedText Project;
  SharedText HelpStr;
  bool IsPrivate = false;

  // Without a key the member goes in under its EnumName, ".", and its Name.
  void Add(std::shared_ptr<clsConstant> member, std::wstring_view key = {});
};

// A user-defined type and its fields.
class clsType : public RecordList<clsVariable> {
 public:
  std::wstring Name;
  SharedText Module;
  SharedText Project;
  bool IsPrivate = false;
};

// The enums of one library or project.
class colEnums : public RecordList<clsEnum> {
 public:
  std::wstring LibName;
};

// The user-defined types of one library or project.
class colTypes : public RecordList<clsType> {
 public:
  std::wstring LibName;
};

}  // namespace quillet::analysis
