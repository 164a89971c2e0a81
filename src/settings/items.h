#pragma once
// The 58 numbered settings items: one table that says, for each item, its key in the INI
// file, its section, its type, its default and the control of the settings dialog that
// shows it. Every lookup reads this table. Item numbers 15, 16, 17 and 50 are reserved:
// they are not in the table and every loop passes them by.
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "io/filesystem.h"
#include "kernel/session.h"
#include "vba/variant.h"

namespace quillet::settings {

// The numbers of the items, for `s.settings[...]`.
enum Item : int {
  kDeveloper = 0,
  kInitials = 1,
  kOrganization = 2,
  kCopyright = 3,
  kDefaultErrorHandle = 4,
  kErrorHandleProcedure = 5,
  kErrorHandleModule = 6,
  kErrorHandler = 7,
  kExitHandler = 8,
  kMakeProcedureConstantTrue = 9,
  kMakeModuleConstantTrue = 10,
  kPrefixModule = 11,
  kPrefixGlobal = 12,
  kPrefixByRef = 13,
  kPrefixByVal = 14,
  kAddErrorHandlingProperty = 18,
  kAddPropertyConstant = 19,
  kAddModuleConstantProperty = 20,
  kSetPickedUpNameUcase = 21,
  kConstTag = 22,
  kConstTagBeforeTypeTag = 23,
  kAddErrorHandlingMethod = 24,
  kAddHeaderMethod = 25,
  kAddMethodConstant = 26,
  kAddModuleConstantMethod = 27,
  kAddHourglassMethod = 28,
  kAddErrorHandlingProcedure = 29,
  kAddHeaderProcedure = 30,
  kAddProcedureConstant = 31,
  kAddModuleConstantProcedure = 32,
  kAddHourglassProcedure = 33,
  kArgumentsOnSeparateLines = 34,
  kAddReturnStatement = 35,
  kOpenOnCurrentProject = 36,
  kIncludeComment = 37,
  kExplicitArguments = 38,
  kEachArgumentOnANewLine = 39,
  kAddCaseElse = 40,
  kInsertReturnValues = 41,
  kCodeCaseElse = 42,
  kDeclarationIndented = 43,
  kModuleNameConstant = 44,
  kProcedureNameConstant = 45,
  kAutoPrefixVariableName = 46,
  kViewQuilletWindow = 47,
  kViewCodeExplorerWindow = 48,
  kViewTipOfTheDay = 49,
  kErrorHandleFile = 51,
  kCollectionClassTemplate = 52,
  kProcedureHeaderFile = 53,
  kModuleHeaderFile = 54,
  kPrefixStandardsFile = 55,
  kLibraryFolder = 56,
  kBaseFolder = 57,
};

enum ItemType : int {
  kTypeString = 0,
  kTypeLong = 1,
  kTypeBoolean = 2,
  kTypeDate = 3,
  kTypeFile = 4,
  kTypeFolder = 5,
  kTypeList = 6,
};

// The INI files beside the program, by number (1 is reserved).
enum IniFileNumber : int { kUserIni = 0, kPrefixIni = 2, kFragmentsReferenceIni = 3, kVarsIni = 4 };

// The sections, by number (4 is reserved; 8 holds no items).
enum SectionNumber : int {
  kSectionDeveloper = 0,
  kSectionErrorHandling = 1,
  kSectionFileLocations = 2,
  kSectionOther = 3,
  kSectionScopePrefix = 5,
  kSectionArgumentPrefix = 6,
  kSectionProcedureBuilder = 7,
  kSectionClassBuilder = 8,
  kSectionPropertyBuilder = 9,
  kSectionMethodBuilder = 10,
  kSectionLinesOfCodeBuilder = 11,
  kSectionSelectCaseFromEnumBuilder = 12,
  kSectionConstBuilder = 13,
  kSectionFragmentsReference = 14,
};

// The modes of "Auto Prefix Variable Name".
enum AutoPrefixMode : int { kNoAutoPrefix = 0, kAlwaysAutoPrefix = 1, kAutoPrefixBeforeCapital = 2 };

struct SettingItem {
  enum class Default { Text, True, False, Number };
  int number;
  const wchar_t* key;
  int section;
  int type;
  Default defaultKind;
  const wchar_t* defaultText;  // the text of a Text or Number default
};

struct SettingSection {
  int number;
  const wchar_t* name;
  int file;
};

// The whole table, in item order.
std::span<const SettingItem> SettingItems();
// nullptr for a number outside the table (the reserved ones included).
const SettingItem* FindItem(int number);
// The item of a key, compared without regard to case; nullptr when none has it.
const SettingItem* FindItemByKey(std::wstring_view key);
const SettingSection* FindSection(int number);
// The bare name of an INI file ("qltusr.ini"); empty for an unknown number.
std::wstring IniFileName(int file);
// The section and the file of an item.
const SettingSection& SectionOf(const SettingItem& item);
std::wstring IniFileOf(const SettingItem& item);

// The value an item has before loading: text, a truth value, or a number.
vba::Variant DefaultValue(const SettingItem& item);
// A value as it is written to an INI file: truth values as "-1" and "0".
std::wstring IniText(const vba::Variant& value);
// Reads an INI text as a truth value: "true", "yes", "-1", "1" (and any other non-zero
// number) are true, "false", "no", "0" false; nullopt for anything else.
std::optional<bool> IniTruth(std::wstring_view text);
// The value an item takes from its INI text, by the item's type: text for text, file,
// folder and list items (empty included); a number, truth value or date otherwise, where
// an empty text or one that cannot be read gives nullopt (the item keeps what it has).
std::optional<vba::Variant> ItemValueFromText(const SettingItem& item, std::wstring_view text);
// The settings dialog's control of an item: "chk", "cbo", "txt" or "lst" and the key
// without blanks and punctuation ("chkViewQuilletWindow").
std::wstring ItemControlName(const SettingItem& item);
// "No Auto Prefix", "Always Auto Prefix", "Auto Prefix before capital char"; empty for
// another number.
std::wstring AutoPrefixName(int mode);

// The same lookups for the rest of the system by number. A number outside the table is a
// developer's mistake: a message box says which lookup missed, and the result is empty.
std::wstring Item2Name(kernel::Session& s, int item);
int Item2Section(kernel::Session& s, int item);
std::wstring Section2Name(kernel::Session& s, int section);
int Section2IniFile(kernel::Session& s, int section);
std::wstring IniFile2Name(kernel::Session& s, int file);
int Item2Type(kernel::Session& s, int item);
std::wstring Item2Control(kernel::Session& s, int item);

// Whether the item is on: a truth value as it stands, a text read as an INI truth value
// (an empty or unreadable text is off). For the check boxes a builder presets.
bool ItemOn(const kernel::Session& s, int item);

// Every item at its default.
void SettingsDefaultsSet(kernel::Session& s);
// Writes one item's value from `s.settings` to its INI file at once.
void SettingWrite(kernel::Session& s, int item);

// For starting a session from a known state (the scenario runner, tests). Every key that
// its INI file in `programFolder` lacks is written with its default, "Developer" with
// `developer`; keys present stay as they are.
void WriteDefaultSettingsFiles(io::FileSystem& files, std::wstring_view programFolder, std::wstring_view developer);
// Writes key=value pairs, each into the section and file of its item (keys compared
// without regard to case). Returns the keys that name no item; those are not written.
std::vector<std::wstring> WriteSettingValues(io::FileSystem& files, std::wstring_view programFolder,
                                             const std::vector<std::pair<std::wstring, std::wstring>>& values);

}  // namespace quillet::settings
