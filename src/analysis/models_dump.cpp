#include "analysis/models_dump.h"

#include "vba/encoding.h"

namespace quillet::analysis {
namespace {

using Json = nlohmann::ordered_json;

std::string Utf8(std::wstring_view text) { return vba::ToUtf8(text); }

template <class C>
Json NameList(const C& items) {
  Json out = Json::array();
  for (const auto& item : items) out.push_back(Utf8(item->Name));
  return out;
}

template <class Blocks>
Json Blocks_(const Blocks& blocks) {
  Json out = Json::object();
  for (const auto& block : blocks) out[Utf8(block->Name)] = NameList(*block);
  return out;
}

}  // namespace

nlohmann::ordered_json ModelsDescribe(const ProjectModels& models) {
  Json out;
  out["procs"] = NameList(models.ProjectProcs);
  out["vars"] = NameList(models.ProjectVars);
  out["consts"] = NameList(models.ProjectConsts);
  out["enums"] = Blocks_(models.ProjectEnums);
  out["types"] = Blocks_(models.ProjectTypes);
  Json classes = Json::array();
  for (const std::wstring& name : models.ProjectClasses) classes.push_back(Utf8(name));
  out["classes"] = classes;
  Json modules = Json::object();
  for (const auto& m : models.StdModules) modules[Utf8(m->Name)] = m->Value;
  out["stdModules"] = modules;
  Json references = Json::array();
  for (const std::wstring& name : models.ReferenceNames) references.push_back(Utf8(name));
  out["references"] = references;
  Json known = Json::object();
  for (const auto& item : models.KnownExpressions) {
    Json expressions = Json::array();
    for (const std::wstring& e : item->Items) expressions.push_back(Utf8(e));
    known[Utf8(item->Library + L"." + item->Name)] = expressions;
  }
  out["knownExpressions"] = known;
  out["library"] = NameList(models.LibraryFolder.Procs.Items());
  return out;
}

}  // namespace quillet::analysis
