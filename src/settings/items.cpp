#include "settings/items.h"

#include <algorithm>
#include <array>

#include "io/paths.h"
#include "settings/profile.h"
#include "kernel/errors.h"
#include "kernel/product.h"
#include "ui/ui_host.h"
#include "vba/dates.h"
#include "vba/numbers.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::settings {

namespace {

using D = SettingItem::Default;

constexpr std::array<SettingItem, 54> kItems{{
    {kDeveloper, L"Developer", kSectionDeveloper, kTypeString, D::Text, L""},
    {kInitials, L"Initials", kSectionDeveloper, kTypeString, D::Text, L""},
    {kOrganization, L"Organization", kSectionDeveloper, kTypeString, D::Text, L""},
    {kCopyright, L"Copyright", kSectionDeveloper, kTypeString, D::Text, L""},
    {kDefaultErrorHandle, L"Default Error Handle", kSectionErrorHandling, kTypeString, D::Text,
     L"On Error GoTo HandleError"},
    {kErrorHandleProcedure, L"ErrorHandle Procedure", kSectionErrorHandling, kTypeString, D::Text, L"ErrorHandle"},
    {kErrorHandleModule, L"ErrorHandle Module", kSectionErrorHandling, kTypeString, D::Text, L"basErrorHandle"},
    {kErrorHandler, L"ErrorHandler", kSectionErrorHandling, kTypeString, D::Text, L"HandleError"},
    {kExitHandler, L"ExitHandler", kSectionErrorHandling, kTypeString, D::Text, L"HandleExit"},
    {kMakeProcedureConstantTrue, L"Make Procedure Constant True", kSectionErrorHandling, kTypeBoolean, D::True, L""},
    {kMakeModuleConstantTrue, L"Make Module Constant True", kSectionErrorHandling, kTypeBoolean, D::True, L""},
    {kPrefixModule, L"Prefix Module", kSectionScopePrefix, kTypeString, D::Text, L"m"},
    {kPrefixGlobal, L"Prefix Global", kSectionScopePrefix, kTypeString, D::Text, L"g"},
    {kPrefixByRef, L"Prefix ByRef", kSectionArgumentPrefix, kTypeString, D::Text, L"r"},
    {kPrefixByVal, L"Prefix ByVal", kSectionArgumentPrefix, kTypeString, D::Text, L"v"},
    {kAddErrorHandlingProperty, L"Add Error Handling Property", kSectionPropertyBuilder, kTypeString, D::Text,
     L"On Error GoTo ExitLabel"},
    // Truth values whose default is the empty string: they become truth values only when
    // a file supplies one.
    {kAddPropertyConstant, L"Add Property Constant", kSectionPropertyBuilder, kTypeBoolean, D::Text, L""},
    {kAddModuleConstantProperty, L"Add Module Constant Property", kSectionPropertyBuilder, kTypeBoolean, D::Text, L""},
    {kSetPickedUpNameUcase, L"Set Picked Up Name UCASE", kSectionConstBuilder, kTypeBoolean, D::False, L""},
    {kConstTag, L"Const Tag", kSectionConstBuilder, kTypeString, D::Text, L"c"},
    {kConstTagBeforeTypeTag, L"Const Tag Before Type Tag", kSectionConstBuilder, kTypeBoolean, D::True, L""},
    {kAddErrorHandlingMethod, L"Add Error Handling Method", kSectionMethodBuilder, kTypeString, D::Text,
     L"On Error GoTo HandleError"},
    {kAddHeaderMethod, L"Add Header Method", kSectionMethodBuilder, kTypeBoolean, D::True, L""},
    {kAddMethodConstant, L"Add Method Constant", kSectionMethodBuilder, kTypeBoolean, D::True, L""},
    {kAddModuleConstantMethod, L"Add Module Constant Method", kSectionMethodBuilder, kTypeBoolean, D::True, L""},
    {kAddHourglassMethod, L"Add Hourglass Method", kSectionMethodBuilder, kTypeBoolean, D::False, L""},
    {kAddErrorHandlingProcedure, L"Add Error Handling Procedure", kSectionProcedureBuilder, kTypeString, D::Text,
     L"On Error GoTo HandleError"},
    {kAddHeaderProcedure, L"Add Header Procedure", kSectionProcedureBuilder, kTypeBoolean, D::True, L""},
    {kAddProcedureConstant, L"Add Procedure Constant", kSectionProcedureBuilder, kTypeBoolean, D::True, L""},
    {kAddModuleConstantProcedure, L"Add Module Constant Procedure", kSectionProcedureBuilder, kTypeBoolean, D::True,
     L""},
    {kAddHourglassProcedure, L"Add Hourglass Procedure", kSectionProcedureBuilder, kTypeBoolean, D::False, L""},
    {kArgumentsOnSeparateLines, L"Arguments on Separate Lines", kSectionProcedureBuilder, kTypeBoolean, D::True, L""},
    {kAddReturnStatement, L"Add Return Statement", kSectionProcedureBuilder, kTypeBoolean, D::False, L""},
    {kOpenOnCurrentProject, L"Open On Current Project", kSectionLinesOfCodeBuilder, kTypeBoolean, D::True, L""},
    {kIncludeComment, L"Include Comment", kSectionLinesOfCodeBuilder, kTypeBoolean, D::False, L""},
    {kExplicitArguments, L"Explicit Arguments", kSectionLinesOfCodeBuilder, kTypeBoolean, D::False, L""},
    {kEachArgumentOnANewLine, L"Each Argument on a New Line", kSectionLinesOfCodeBuilder, kTypeBoolean, D::False, L""},
    {kAddCaseElse, L"Add Case Else", kSectionSelectCaseFromEnumBuilder, kTypeBoolean, D::True, L""},
    {kInsertReturnValues, L"Insert Return Values", kSectionSelectCaseFromEnumBuilder, kTypeBoolean, D::False, L""},
    {kCodeCaseElse, L"Code Case Else", kSectionSelectCaseFromEnumBuilder, kTypeString, D::Text,
     L"Msgbox \"Missing Case\""},
    {kDeclarationIndented, L"Declaration Indented", kSectionOther, kTypeBoolean, D::True, L""},
    {kModuleNameConstant, L"Module Name Constant", kSectionOther, kTypeString, D::Text, L"cstrModule"},
    {kProcedureNameConstant, L"Procedure Name Constant", kSectionOther, kTypeString, D::Text, L"cstrProcedure"},
    {kAutoPrefixVariableName, L"Auto Prefix Variable Name", kSectionOther, kTypeString, D::Number, L"2"},
    {kViewQuilletWindow, L"View Quillet Window", kSectionOther, kTypeBoolean, D::False, L""},
    {kViewCodeExplorerWindow, L"View Code Explorer Window", kSectionOther, kTypeBoolean, D::False, L""},
    {kViewTipOfTheDay, L"View Tip Of The Day", kSectionOther, kTypeBoolean, D::False, L""},
    {kErrorHandleFile, L"ErrorHandle File", kSectionFileLocations, kTypeFile, D::Text,
     L"\\vbcode\\ErrorHandlers\\basErrorHandle.bas"},
    {kCollectionClassTemplate, L"Collection Class Template", kSectionFileLocations, kTypeFile, D::Text,
     L"\\vbcode\\Templates\\CollectionClass\\CollectionClass.cls"},
    {kProcedureHeaderFile, L"Procedure Header File", kSectionFileLocations, kTypeFile, D::Text,
     L"\\vbcode\\Fragments\\Headers And Comments\\ProcedureHeader.bas"},
    {kModuleHeaderFile, L"Module Header File", kSectionFileLocations, kTypeFile, D::Text,
     L"\\vbcode\\Fragments\\Headers And Comments\\ModuleHeader.bas"},
    {kPrefixStandardsFile, L"Prefix Standards File", kSectionFileLocations, kTypeFile, D::Text, L"\\qlttp.ini"},
    {kLibraryFolder, L"Library Folder", kSectionFileLocations, kTypeFolder, D::Text, L"\\vbcode\\Library\\"},
    {kBaseFolder, L"Base Folder", kSectionFileLocations, kTypeFolder, D::Text, L"\\vbcode\\"},
}};

constexpr std::array<SettingSection, 14> kSections{{
    {kSectionDeveloper, L"Developer", kUserIni},
    {kSectionErrorHandling, L"Error Handling", kUserIni},
    {kSectionFileLocations, L"File Locations", kUserIni},
    {kSectionOther, L"Other", kUserIni},
    {kSectionScopePrefix, L"Scope Prefix", kPrefixIni},
    {kSectionArgumentPrefix, L"Argument Prefix", kPrefixIni},
    {kSectionProcedureBuilder, L"Procedure Builder", kUserIni},
    {kSectionClassBuilder, L"Class Builder", kUserIni},
    {kSectionPropertyBuilder, L"Property Builder", kUserIni},
    {kSectionMethodBuilder, L"Method Builder", kUserIni},
    {kSectionLinesOfCodeBuilder, L"Lines Of Code Builder", kUserIni},
    {kSectionSelectCaseFromEnumBuilder, L"Select Case From Enum Builder", kUserIni},
    {kSectionConstBuilder, L"Const Builder", kUserIni},
    {kSectionFragmentsReference, L"fragments/reference", kFragmentsReferenceIni},
}};

// Items whose control is a combo box rather than a text box.
constexpr std::array<int, 5> kComboItems{kDefaultErrorHandle, kAddErrorHandlingProperty, kAddErrorHandlingMethod,
                                         kAddErrorHandlingProcedure, kAutoPrefixVariableName};

// The developer's guard of the lookups by number.
void MissingCase(kernel::Session& s, const std::wstring& text) {
  s.uiHost.MsgBox(text, ui::vbOKOnly, kernel::kAppName);
}

// The INI files of the items, each once, in the order of their first item.
std::vector<int> ItemFiles() {
  std::vector<int> files;
  for (const auto& item : kItems) {
    int file = SectionOf(item).file;
    if (std::find(files.begin(), files.end(), file) == files.end()) files.push_back(file);
  }
  return files;
}

}  // namespace

std::span<const SettingItem> SettingItems() { return kItems; }

const SettingItem* FindItem(int number) {
  for (const auto& item : kItems)
    if (item.number == number) return &item;
  return nullptr;
}

const SettingItem* FindItemByKey(std::wstring_view key) {
  for (const auto& item : kItems)
    if (vba::EqualsText(item.key, key)) return &item;
  return nullptr;
}

const SettingSection* FindSection(int number) {
  for (const auto& section : kSections)
    if (section.number == number) return &section;
  return nullptr;
}

std::wstring IniFileName(int file) {
  switch (file) {
    case kUserIni: return L"qltusr.ini";
    case kPrefixIni: return L"qlttp.ini";
    case kFragmentsReferenceIni: return L"qltrefra.ini";
    case kVarsIni: return L"qltvars.ini";
    default: return {};
  }
}

const SettingSection& SectionOf(const SettingItem& item) { return *FindSection(item.section); }

std::wstring IniFileOf(const SettingItem& item) { return IniFileName(SectionOf(item).file); }

vba::Variant DefaultValue(const SettingItem& item) {
  switch (item.defaultKind) {
    case D::True: return true;
    case D::False: return false;
    case D::Number: return static_cast<long long>(vba::Val(item.defaultText));
    case D::Text: break;
  }
  return std::wstring(item.defaultText);
}

std::wstring IniText(const vba::Variant& value) {
  if (value.kind() == vba::Variant::Kind::Boolean) return value.ToBool() ? L"-1" : L"0";
  return value.ToString();
}

std::optional<bool> IniTruth(std::wstring_view text) {
  std::wstring t = vba::LCase(vba::Trim(text));
  if (t == L"true" || t == L"yes") return true;
  if (t == L"false" || t == L"no") return false;
  if (vba::IsNumeric(t)) return vba::CDbl(t) != 0;
  return std::nullopt;
}

std::optional<vba::Variant> ItemValueFromText(const SettingItem& item, std::wstring_view text) {
  switch (item.type) {
    case kTypeString:
    case kTypeFile:
    case kTypeFolder:
    case kTypeList:
      return vba::Variant(std::wstring(text));
    default:
      break;
  }
  if (text.empty()) return std::nullopt;
  switch (item.type) {
    case kTypeLong:
      if (!vba::IsNumeric(text)) return std::nullopt;
      try {
        return vba::Variant(static_cast<long long>(vba::CLng(vba::CDbl(text))));
      } catch (const vba::Error&) {
        return std::nullopt;  // beyond the range of a Long
      }
    case kTypeBoolean:
      if (auto truth = IniTruth(text)) return vba::Variant(*truth);
      return std::nullopt;
    case kTypeDate:
      if (auto date = vba::ParseDate(text)) return vba::Variant(*date);
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

std::wstring ItemControlName(const SettingItem& item) {
  std::wstring prefix = L"txt";
  switch (item.type) {
    case kTypeString:
    case kTypeLong:
    case kTypeDate:
      if (std::find(kComboItems.begin(), kComboItems.end(), item.number) != kComboItems.end()) prefix = L"cbo";
      break;
    case kTypeBoolean: prefix = L"chk"; break;
    case kTypeList: prefix = L"lst"; break;
    default: break;
  }
  static constexpr std::wstring_view kRemoved = L" `~!@#$%^&*()-+={}[]?<>,.\"";
  std::wstring name = prefix;
  for (const wchar_t* c = item.key; *c; ++c)
    if (kRemoved.find(*c) == std::wstring_view::npos) name += *c;
  return name;
}

std::wstring AutoPrefixName(int mode) {
  switch (mode) {
    case kNoAutoPrefix: return L"No Auto Prefix";
    case kAlwaysAutoPrefix: return L"Always Auto Prefix";
    case kAutoPrefixBeforeCapital: return L"Auto Prefix before capital char";
    default: return {};
  }
}

bool ItemOn(const kernel::Session& s, int item) {
  const vba::Variant& v = s.settings[item];
  if (v.kind() == vba::Variant::Kind::String) return IniTruth(v.ToString()).value_or(false);
  return v.ToBool();
}

std::wstring Item2Name(kernel::Session& s, int item) {
  if (const SettingItem* found = FindItem(item)) return found->key;
  MissingCase(s, L"Missing Case in Item2Name" + std::to_wstring(item));
  return {};
}

int Item2Section(kernel::Session& s, int item) {
  if (const SettingItem* found = FindItem(item)) return found->section;
  MissingCase(s, L"Missing Case in ItemInSection " + std::to_wstring(item));
  return -1;
}

std::wstring Section2Name(kernel::Session& s, int section) {
  if (const SettingSection* found = FindSection(section)) return found->name;
  MissingCase(s, L"Missing Case in Section2Name for Section " + std::to_wstring(section));
  return {};
}

int Section2IniFile(kernel::Session& s, int section) {
  if (const SettingSection* found = FindSection(section)) return found->file;
  MissingCase(s, L"Missing Case in Section2IniFile for Section " + std::to_wstring(section));
  return -1;
}

std::wstring IniFile2Name(kernel::Session& s, int file) {
  std::wstring name = IniFileName(file);
  if (name.empty()) MissingCase(s, L"Missing Case in IniFile2Name for IniFile" + std::to_wstring(file));
  return name;
}

int Item2Type(kernel::Session& s, int item) {
  if (const SettingItem* found = FindItem(item)) return found->type;
  MissingCase(s, L"Missing Case in Item2IniItemType " + std::to_wstring(item));
  return -1;
}

std::wstring Item2Control(kernel::Session& s, int item) {
  if (const SettingItem* found = FindItem(item)) return ItemControlName(*found);
  MissingCase(s, L"Missing Case in Item2Name" + std::to_wstring(item));
  return {};
}

void SettingsDefaultsSet(kernel::Session& s) {
  for (auto& value : s.settings) value = vba::Variant();
  for (const auto& item : kItems) s.settings[item.number] = DefaultValue(item);
}

void SettingWrite(kernel::Session& s, int item) {
  const SettingItem* found = FindItem(item);
  if (!found) return;
  ProfileWriteString(s.platform.Files(), io::JoinPath(s.platform.ProgramFolder(), IniFileOf(*found)),
                     SectionOf(*found).name, found->key, IniText(s.settings[item]));
}

void WriteDefaultSettingsFiles(io::FileSystem& files, std::wstring_view programFolder, std::wstring_view developer) {
  for (int file : ItemFiles()) {
    std::wstring path = io::JoinPath(programFolder, IniFileName(file));
    IniDocument doc = IniDocument::Load(files, path);
    bool changed = false;
    for (const auto& item : kItems) {
      const SettingSection& section = SectionOf(item);
      if (section.file != file || doc.KeyExists(section.name, item.key)) continue;
      doc.WriteString(section.name, item.key,
                      item.number == kDeveloper ? std::wstring(developer) : IniText(DefaultValue(item)));
      changed = true;
    }
    if (changed) doc.Save(files, path);
  }
}

std::vector<std::wstring> WriteSettingValues(io::FileSystem& files, std::wstring_view programFolder,
                                             const std::vector<std::pair<std::wstring, std::wstring>>& values) {
  std::vector<std::wstring> unknown;
  for (const auto& [key, value] : values) {
    const SettingItem* item = FindItemByKey(key);
    if (!item) {
      unknown.push_back(key);
      continue;
    }
    ProfileWriteString(files, io::JoinPath(programFolder, IniFileOf(*item)), SectionOf(*item).name, item->key,
                       value);
  }
  return unknown;
}

}  // namespace quillet::settings
