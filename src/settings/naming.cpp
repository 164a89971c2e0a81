#include "settings/naming.h"

#include "settings/folders.h"
#include "settings/ini_file.h"
#include "settings/items.h"
#include "settings/settings.h"
#include "kernel/errors.h"
#include "ui/list_controls.h"
#include "vba/numbers.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::settings {

namespace {

constexpr std::size_t kMaxPrefixes = 5;

// A truth value of the settings; an item that holds no truth value counts as false.
bool SettingTruth(kernel::Session& s, int item) {
  try {
    return s.settings[item].ToBool();
  } catch (const vba::Error&) {
    return false;
  }
}

std::wstring SettingText(kernel::Session& s, int item) { return s.settings[item].ToString(); }

bool StartsWithCase(std::wstring_view word, std::wstring_view prefix) {
  return word.size() >= prefix.size() && word.compare(0, prefix.size(), prefix) == 0;
}

// The row of a type (its first, without regard to case); nullptr when the table has none.
const TypePrefixRow* RowOf(const NamingStandard& n, std::wstring_view typeName) {
  for (const auto& row : n.typePrefixes)
    if (vba::EqualsText(row[0], typeName)) return &row;
  return nullptr;
}

// The type's name of a key of the "Prefix" section: "String Prefix" and "String" are both
// "String".
std::wstring TypeNameOfKey(const std::wstring& key) {
  long at = vba::InStr(vba::LCase(key), L"prefix");
  if (at == 0) return key;
  return vba::Trim(vba::Left(key, at - 1)) + vba::Trim(vba::Mid(key, at + 6));
}

void AddPrefix(vba::Collection<Prefix>& prefixes, const std::wstring& key, long scope, const std::wstring& type) {
  if (key.empty() || prefixes.Exists(key)) return;
  prefixes.Add(Prefix{scope, type, key}, key);
}

}  // namespace

NamingStandard::NamingStandard() : keywords(KeywordList()) {}

NamingStandard& Naming(kernel::Session& s) {
  std::shared_ptr<NamingStandard>& standard = s.Slot<NamingStandard>();
  if (!standard) standard = std::make_shared<NamingStandard>();
  return *standard;
}

const std::vector<std::wstring>& KeywordList() {
  static const std::vector<std::wstring> words{
      L"As",       L"Binary",   L"ByRef",   L"ByVal",   L"Date",       L"Else",     L"Empty",      L"Error",
      L"False",    L"For",      L"Friend",  L"Get",     L"Input",      L"Is",       L"Len",        L"Let",
      L"Lock",     L"Me",       L"Mid",     L"New",     L"Next",       L"Nothing",  L"Null",       L"On",
      L"Option",   L"Optional", L"ParamArray", L"Print", L"Private",   L"Property", L"Public",     L"Resume",
      L"Seek",     L"Set",      L"Static",  L"Step",    L"String",     L"Then",     L"Time",       L"To",
      L"True",     L"WithEvents", L"Declare", L"Enum",  L"Type",       L"Byte",     L"Long",       L"Collection",
      L"Boolean",  L"Double",   L"Single",  L"Integer", L"Object",     L"Variant",  L"Dim",        L"Const",
      L"Function", L"Sub",      L"With",    L"Select",  L"If",         L"ElseIf",   L"End",        L"Exit",
      L"While",    L"GoTo",     L"Each",    L"Loop",    L"And",        L"Or",       L"Case",       L"Erase",
      L"Redim",    L"Until",    L"Wend",    L"Debug",   L"Rem"};
  return words;
}

bool IsBasicType(std::wstring_view typeName) {
  for (const wchar_t* basic : {L"Byte", L"Boolean", L"Integer", L"Long", L"Single", L"Double", L"Currency", L"Date",
                               L"String"})
    if (vba::EqualsText(basic, typeName)) return true;
  return false;
}

void TypePrefixFromIniFile(kernel::Session& s) {
  kernel::Trap(s, L"basGlobal.TypePrefixFromIniFile", [&] {
    NamingStandard& n = Naming(s);
    IniFile ini(s);
    ini.SetName(PrefixStandardsFileGet(s));
    n.typePrefixes.clear();
    const IniFileSection::ItemCollection* items = nullptr;
    if (!ini.Name().empty() && ini.SectionExists(L"Prefix")) items = ini.Sections().Item(L"Prefix")->Items();
    if (items) {
      for (const auto& item : *items) {
        TypePrefixRow row;
        row[0] = TypeNameOfKey(item->name);
        std::vector<std::wstring> prefixes = vba::Split(item->value, L",");
        for (std::size_t i = 0; i < prefixes.size() && i < kMaxPrefixes; ++i) row[i + 1] = vba::Trim(prefixes[i]);
        n.typePrefixes.push_back(std::move(row));
      }
    }
    // The lookups always follow the table, so that a standard that went away leaves none.
    PrefixesCollectionsCreate(s);
  });
}

void PrefixesCollectionsCreate(kernel::Session& s) {
  kernel::Trap(s, L"basGlobal.PrefixesCollectionsCreate", [&] {
    NamingStandard& n = Naming(s);
    n.prefixesVariable.Clear();
    n.prefixesConstant.Clear();
    std::wstring constTag = SettingText(s, kConstTag);
    bool tagBefore = SettingTruth(s, kConstTagBeforeTypeTag);
    std::wstring module = SettingText(s, kPrefixModule);
    std::wstring global = SettingText(s, kPrefixGlobal);
    std::wstring byRef = SettingText(s, kPrefixByRef);
    std::wstring byVal = SettingText(s, kPrefixByVal);
    for (const auto& row : n.typePrefixes) {
      const std::wstring& type = row[0];
      bool basic = IsBasicType(type);
      for (std::size_t i = 1; i < row.size(); ++i) {
        const std::wstring& p = row[i];
        if (p.empty()) continue;
        std::wstring constant;
        if (!constTag.empty() && basic) constant = tagBefore ? constTag + p : p + constTag;
        AddPrefix(n.prefixesVariable, p, kScopeLocal, type);
        if (!constant.empty()) AddPrefix(n.prefixesConstant, constant, kScopeLocal, type);
        if (!module.empty()) {
          AddPrefix(n.prefixesVariable, module + p, kScopeModule, type);
          if (!constant.empty()) AddPrefix(n.prefixesConstant, module + constant, kScopeModule, type);
        }
        if (!global.empty()) {
          AddPrefix(n.prefixesVariable, global + p, kScopeGlobal, type);
          if (!constant.empty()) AddPrefix(n.prefixesConstant, global + constant, kScopeGlobal, type);
        }
        if (!byRef.empty()) AddPrefix(n.prefixesVariable, byRef + p, kScopeByRef, type);
        if (!byVal.empty()) AddPrefix(n.prefixesVariable, byVal + p, kScopeByVal, type);
      }
    }
  });
}

bool WordHasTypePrefix(kernel::Session& s, std::wstring_view word, std::wstring& typeName, std::wstring& prefix,
                       bool basicOnly) {
  bool found = false;
  kernel::Trap(s, L"basGlobal.WordHasTypePrefix", [&] {
    const NamingStandard& n = Naming(s);
    prefix.clear();
    if (!typeName.empty()) {
      const TypePrefixRow* row = RowOf(n, typeName);
      if (!row) return;
      prefix = (*row)[1];
      for (std::size_t i = 1; i < row->size() && !(*row)[i].empty(); ++i) {
        if (StartsWithCase(word, (*row)[i])) {
          prefix = (*row)[i];
          found = true;
          return;
        }
      }
      return;
    }
    const TypePrefixRow* best = nullptr;
    std::wstring bestPrefix;
    for (const auto& row : n.typePrefixes) {
      if (basicOnly && !IsBasicType(row[0])) continue;
      for (std::size_t i = 1; i < row.size() && !row[i].empty(); ++i) {
        if (StartsWithCase(word, row[i]) && row[i].size() > bestPrefix.size()) {
          best = &row;
          bestPrefix = row[i];
        }
      }
    }
    if (!best) return;
    typeName = (*best)[0];
    prefix = bestPrefix;
    found = true;
  });
  return found;
}

std::wstring DefaultTypePrefix(kernel::Session& s, std::wstring_view typeName) {
  const TypePrefixRow* row = RowOf(Naming(s), typeName);
  return row ? (*row)[1] : std::wstring();
}

std::wstring PrefixesCheck(kernel::Session& s, std::wstring_view word, std::wstring& typeName, long& scope,
                           std::wstring& scopePrefix, bool isConstant, std::wstring& rest) {
  std::wstring result = L"0; ; ; ";
  kernel::Trap(s, L"basGlobal.PrefixesCheck", [&] {
    const NamingStandard& n = Naming(s);
    const vba::Collection<Prefix>& prefixes = isConstant ? n.prefixesConstant : n.prefixesVariable;
    std::size_t lower = 0;
    while (lower < word.size() && word[lower] != vba::ToUpper(word[lower])) ++lower;
    for (std::size_t len = lower; len >= 1; --len) {
      const Prefix* hit = prefixes.Find(word.substr(0, len));
      if (!hit) continue;
      scopePrefix = word.substr(0, len);
      rest = word.substr(len);
      scope = hit->scope;
      typeName = hit->type;
      result = rest + L"; " + typeName + L"; " + scopePrefix + L"; " + std::to_wstring(scope);
      return;
    }
  });
  return result;
}

std::wstring NameWithPrefix(kernel::Session& s, std::wstring_view name, std::wstring& typeName, ui::ComboBox* combo,
                            long& scope, bool isConstant, std::wstring& scopePrefix) {
  std::wstring modeText = SettingText(s, kAutoPrefixVariableName);
  long mode = vba::IsNumeric(modeText) ? static_cast<long>(vba::Val(modeText)) : long{kAutoPrefixBeforeCapital};
  if (mode == kNoAutoPrefix || (name.empty() && typeName.empty())) return std::wstring(name);

  const std::wstring typeGiven = typeName;
  std::wstring typeFromName;
  std::wstring base(name);
  if (!name.empty()) {
    std::wstring rest;
    bool found;
    if (scope < 1) {
      found = PrefixesCheck(s, name, typeName, scope, scopePrefix, isConstant, rest) != L"0; ; ; ";
      if (found) typeFromName = typeName;
    } else {
      // The scope is known and stands; the name gives the base, and the type when none
      // was given.
      long ignoredScope = kScopeNone;
      std::wstring ignoredPrefix;
      found = PrefixesCheck(s, name, typeFromName, ignoredScope, ignoredPrefix, isConstant, rest) != L"0; ; ; ";
      if (found && typeName.empty()) typeName = typeFromName;
    }
    if (found) base = rest;
    if (isConstant && SettingTruth(s, kSetPickedUpNameUcase)) base = vba::UCase(base);
    if (mode == kAutoPrefixBeforeCapital && !(base.size() > 0 && vba::IsLetter(base[0]) && base[0] == vba::ToUpper(base[0])))
      return std::wstring(name);
  }

  if (combo) {
    if (typeGiven.empty() && !typeFromName.empty()) {
      int index = combo->FindStringExact(typeFromName);
      if (index >= 0) combo->SetListIndex(index);
    }
    return std::wstring(name);
  }

  std::wstring tag;
  if (!typeName.empty()) {
    std::wstring type = typeName;
    WordHasTypePrefix(s, name, type, tag, false);
    if (tag.empty()) tag = DefaultTypePrefix(s, typeName);
  }
  if (isConstant) {
    std::wstring constTag = SettingText(s, kConstTag);
    tag = SettingTruth(s, kConstTagBeforeTypeTag) ? constTag + tag : tag + constTag;
  }
  std::wstring scopeText;
  switch (scope) {
    case kScopeGlobal: scopeText = SettingText(s, kPrefixGlobal); break;
    case kScopeModule: scopeText = SettingText(s, kPrefixModule); break;
    case kScopeByRef: scopeText = SettingText(s, kPrefixByRef); break;
    case kScopeByVal: scopeText = SettingText(s, kPrefixByVal); break;
    default: break;
  }
  return scopeText + tag + base;
}

}  // namespace quillet::settings
