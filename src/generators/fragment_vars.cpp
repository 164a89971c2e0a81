#include "generators/fragment_vars.h"

#include <cwctype>

#include "generators/scope.h"
#include "generators/var_const_code.h"
#include "kernel/errors.h"
#include "settings/name_checks.h"
#include "settings/naming.h"
#include "vba/like.h"
#include "vba/strings.h"

namespace quillet::generators {
namespace {

// "STRING1" reads "String": trailing non-letters go, the first letter up, the rest down.
std::wstring TypeNormalized(std::wstring type) {
  while (!type.empty() && !std::iswalpha(type.back())) type.pop_back();
  for (std::size_t i = 0; i < type.size(); ++i)
    type[i] = i == 0 ? static_cast<wchar_t>(std::towupper(type[i])) : static_cast<wchar_t>(std::towlower(type[i]));
  return type;
}

}  // namespace

bool FragmentVarParse(kernel::Session& s, std::wstring_view token, std::wstring& type, std::wstring& name,
                      std::wstring& value, long prefixScope, bool constantByValue) {
  type.clear();
  name.clear();
  value.clear();
  if (token.size() < 2) return false;
  const std::wstring inner(token.substr(1, token.size() - 2));
  if (inner.empty()) return false;

  std::wstring rest;
  if (const std::size_t colon = inner.find(L':'); colon != std::wstring::npos) {
    type = inner.substr(0, colon);
    rest = vba::Trim(inner.substr(colon + 1));
  } else {
    type = inner;
  }
  type = TypeNormalized(type);
  std::wstring base = type;
  if (vba::Like(base, L"*?.?*")) base = base.substr(0, base.find(L'.'));

  if (const std::size_t equals = rest.find(L'='); equals != std::wstring::npos) {
    name = vba::Trim(rest.substr(0, equals));
    value = vba::Trim(rest.substr(equals + 1));
  } else {
    name = rest;
  }

  if (!type.empty()) {
    const bool isConstant = constantByValue && !value.empty();
    long scope = prefixScope;
    std::wstring typeName = type, scopePrefix;
    name = settings::NameWithPrefix(s, name, typeName, nullptr, scope, isConstant, scopePrefix);
    if (name.empty() && rest.empty()) name = L"var" + base;
  }
  settings::ValidateVarName(s, name, true, {});
  return true;
}

std::wstring FragmentDeclarationLine(const std::wstring& type, const std::wstring& name, const std::wstring& value) {
  if (!value.empty()) return L"Const " + name + L" As " + type + L" = " + value;
  return L"Dim " + name + L" As " + type;
}

std::vector<FragmentVar> FragmentTokensFill(kernel::Session& s, std::wstring& text) {
  std::vector<FragmentVar> vars;
  if (!vba::Like(text, L"*{*}*")) return vars;
  std::size_t from = 0;
  for (;;) {
    const std::size_t open = text.find(L'{', from);
    if (open == std::wstring::npos) break;
    const std::size_t close = text.find(L'}', open + 1);
    if (close == std::wstring::npos) break;
    FragmentVar v;
    v.token = text.substr(open, close - open + 1);
    // Search on behind this brace: a token that gives no name stays and is passed over.
    from = open + 1;
    if (!FragmentVarParse(s, v.token, v.type, v.name, v.value, settings::kScopeLocal, true)) continue;
    text = vba::Replace(text, v.token, v.name, 1, -1, vba::Compare::Text);
    vars.push_back(std::move(v));
  }
  return vars;
}

void FragmentUseDefaults(kernel::Session& s, std::wstring& text) {
  kernel::Trap(s, L"basGlobal.FragmentUseDefaults", [&] {
    for (const FragmentVar& v : FragmentTokensFill(s, text)) {
      if (v.name.empty() || v.type.empty()) continue;
      initialize(s, L"", L"");
      const Scope& scope = ScopeOf(s);
      if (scope.ProcVars.Exists(v.name) || scope.ProcConsts.Exists(v.name)) continue;
      std::wstring module;
      VarConstPlace place;
      place.name = v.name;
      place.appendToDeclarations = v.value.empty();
      VarConstCodeAdd(s, FragmentDeclarationLine(v.type, v.name, v.value), module, place);
    }
  });
}

}  // namespace quillet::generators
