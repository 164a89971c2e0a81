#include "io/project_folder.h"

#include <algorithm>
#include <map>
#include <optional>

#include <nlohmann/json.hpp>

#include "io/module_text.h"
#include "io/paths.h"
#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::io {
namespace {

using nlohmann::json;

constexpr std::wstring_view kProjectFile = L"project.json";

bool IsModuleFile(std::wstring_view name) {
  std::wstring ext = ExtensionOf(name);
  return vba::EqualsText(ext, L".bas") || vba::EqualsText(ext, L".cls") || vba::EqualsText(ext, L".frm");
}

bool NameOrder(const std::wstring& a, const std::wstring& b) {
  int c = vba::CompareText(a, b);
  return c != 0 ? c < 0 : a < b;
}

// The order of the modules: the files the project file lists, in its order, then the
// others by name.
std::vector<std::wstring> ComponentOrder(const std::vector<std::wstring>& listed, std::vector<std::wstring> files) {
  std::vector<std::wstring> order;
  for (const std::wstring& want : listed) {
    auto it = std::find_if(files.begin(), files.end(), [&](const std::wstring& f) { return vba::EqualsText(f, want); });
    if (it == files.end()) continue;  // listed but gone: nothing to load
    order.push_back(*it);
    files.erase(it);
  }
  std::sort(files.begin(), files.end(), NameOrder);
  order.insert(order.end(), files.begin(), files.end());
  return order;
}

// What the project file says, with the defaults for what it leaves out.
struct ProjectData {
  std::wstring name = L"VBAProject";
  std::wstring fileName;
  int protection = 0;
  std::vector<ReferenceInfo> references = DefaultReferences();
  std::vector<std::wstring> components;
  bool listsComponents = false;
};

// Reads the typed members of a JSON object, refusing a member of the wrong type.
class Reader {
 public:
  Reader(const json& object, std::wstring_view file, std::wstring where)
      : object_(object), file_(file), where_(std::move(where)) {
    if (!object_.is_object()) Refuse(L"", L"a JSON object");
  }
  std::wstring Text(const char* key, std::wstring_view otherwise = {}) const {
    const json* v = Find(key);
    if (!v) return std::wstring(otherwise);
    if (!v->is_string()) Refuse(key, L"text");
    return vba::FromUtf8(v->get<std::string>());
  }
  int Number(const char* key) const {
    const json* v = Find(key);
    if (!v) return 0;
    if (!v->is_number_integer()) Refuse(key, L"a whole number");
    return v->get<int>();
  }
  bool Flag(const char* key) const {
    const json* v = Find(key);
    if (!v) return false;
    if (!v->is_boolean()) Refuse(key, L"true or false");
    return v->get<bool>();
  }
  const json* List(const char* key) const {
    const json* v = Find(key);
    if (v && !v->is_array()) Refuse(key, L"a list");
    return v;
  }

 private:
  const json* Find(const char* key) const {
    auto it = object_.find(key);
    return it == object_.end() || it->is_null() ? nullptr : &*it;
  }
  [[noreturn]] void Refuse(std::wstring_view key, std::wstring_view expected) const {
    std::wstring what = key.empty() ? L"the entry" : L"\"" + std::wstring(key) + L"\"";
    RefuseModule(file_, where_, what + L" must be " + std::wstring(expected));
  }
  [[noreturn]] void Refuse(const char* key, std::wstring_view expected) const {
    Refuse(vba::FromUtf8(key), expected);
  }

  const json& object_;
  std::wstring_view file_;
  std::wstring where_;
};

ProjectData ParseProjectFile(std::string_view bytes, std::wstring_view file) {
  json j;
  try {
    j = json::parse(bytes);
  } catch (const json::parse_error& e) {
    std::string why = e.what();
    std::size_t cut = why.find("] ");
    RefuseModule(file, L"byte " + std::to_wstring(e.byte),
                 L"not valid JSON (" + vba::FromUtf8(cut == std::string::npos ? why : why.substr(cut + 2)) + L")");
  }
  Reader top(j, file, {});
  ProjectData d;
  d.name = top.Text("name", d.name);
  d.fileName = top.Text("fileName");
  d.protection = top.Number("protection");
  if (const json* refs = top.List("references")) {
    d.references.clear();
    for (std::size_t i = 0; i < refs->size(); ++i) {
      Reader r((*refs)[i], file, L"reference " + std::to_wstring(i + 1));
      ReferenceInfo ref;
      ref.name = r.Text("name");
      ref.fullPath = r.Text("fullPath");
      ref.guid = r.Text("guid");
      ref.description = r.Text("description");
      ref.major = r.Number("major");
      ref.minor = r.Number("minor");
      ref.isBroken = r.Flag("broken");
      ref.builtIn = r.Flag("builtIn");
      d.references.push_back(std::move(ref));
    }
  }
  if (const json* components = top.List("components")) {
    d.listsComponents = true;
    for (const json& c : *components) {
      if (!c.is_string()) RefuseModule(file, {}, L"\"components\" must be a list of file names");
      d.components.push_back(vba::FromUtf8(c.get<std::string>()));
    }
  }
  return d;
}

json ReferenceJson(const ReferenceInfo& r) {
  return json{{"name", vba::ToUtf8(r.name)},   {"fullPath", vba::ToUtf8(r.fullPath)},
              {"guid", vba::ToUtf8(r.guid)},   {"description", vba::ToUtf8(r.description)},
              {"major", r.major},              {"minor", r.minor},
              {"broken", r.isBroken},          {"builtIn", r.builtIn}};
}

// The project file to write, or nothing when the folder's file (or its absence) already
// says what the project holds. Members of an existing file that this code does not know
// are kept.
std::optional<std::string> ProjectFileBytes(const FileSystem& fs, const ProjectFolder& p,
                                            const std::vector<std::wstring>& files) {
  std::wstring path = JoinPath(p.folder, kProjectFile);
  std::optional<ProjectData> existing;
  json merged = json::object();
  if (fs.FileExists(path)) {
    std::string bytes = fs.ReadFile(path);
    try {
      existing = ParseProjectFile(bytes, path);
      merged = json::parse(bytes);
    } catch (const vba::Error&) {
      // A project file broken since the load is replaced by what the project holds.
    }
  }
  ProjectData base = existing.value_or(ProjectData{});
  bool orderImplied = ComponentOrder(base.components, files) == files;
  if (p.name == base.name && p.fileName == base.fileName && p.protection == base.protection &&
      p.references == base.references && orderImplied && (existing || !p.hasProjectFile))
    return std::nullopt;

  merged["name"] = vba::ToUtf8(p.name);
  merged["fileName"] = vba::ToUtf8(p.fileName);
  merged["protection"] = p.protection;
  merged["references"] = json::array();
  for (const ReferenceInfo& r : p.references) merged["references"].push_back(ReferenceJson(r));
  if (!orderImplied || base.listsComponents) {
    merged["components"] = json::array();
    for (const std::wstring& f : files) merged["components"].push_back(vba::ToUtf8(f));
  }
  return merged.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}

}  // namespace

std::vector<ReferenceInfo> DefaultReferences() {
  return {
      {L"VBA", L"C:\\Program Files\\Common Files\\Shared\\VBA\\VBE7.DLL",
       L"{000204EF-0000-0000-C000-000000000046}", L"Visual Basic For Applications", 4, 2, false, true},
      {L"Excel", L"C:\\Program Files\\Office\\EXCEL.EXE",
       L"{00020813-0000-0000-C000-000000000046}", L"Excel Object Library", 1, 9, false, true},
      {L"stdole", L"C:\\Windows\\System32\\stdole2.tlb", L"{00020430-0000-0000-C000-000000000046}",
       L"OLE Automation", 2, 0, false, false},
      {L"Office", L"C:\\Program Files\\Common Files\\Shared\\Office\\MSO.DLL",
       L"{2DF8D04C-5BFA-101B-BDE5-00AA0044DE52}", L"Office Object Library", 2, 8, false, false},
  };
}

ProjectFolder LoadProjectFolder(const FileSystem& fs, std::wstring_view folder) {
  if (!fs.FolderExists(folder))
    vba::Raise(vba::kErrPathNotFound,
               vba::Error::StandardDescription(vba::kErrPathNotFound) + L": " + std::wstring(folder));
  ProjectFolder p;
  p.folder = std::wstring(folder);

  std::vector<std::wstring> moduleFiles, otherFiles;
  std::optional<std::wstring> projectFile;
  for (const DirEntry& e : fs.List(folder)) {
    if (e.isFolder) continue;
    if (vba::EqualsText(e.name, kProjectFile))
      projectFile = e.name;
    else if (IsModuleFile(e.name))
      moduleFiles.push_back(e.name);
    else
      otherFiles.push_back(e.name);
  }

  ProjectData data;
  if (projectFile) {
    std::wstring path = JoinPath(folder, *projectFile);
    data = ParseProjectFile(fs.ReadFile(path), path);
    p.hasProjectFile = true;
  }
  p.name = data.name;
  p.fileName = data.fileName;
  p.protection = data.protection;
  p.references = data.references;

  std::map<std::wstring, std::wstring, vba::TextLess> fileOfModule;
  for (const std::wstring& file : ComponentOrder(data.components, moduleFiles)) {
    std::wstring path = JoinPath(folder, file);
    ModuleFile m = ParseModuleFile(fs.ReadFile(path), path);
    if (auto [it, added] = fileOfModule.emplace(m.name, file); !added)
      RefuseModule(path, {}, L"the module name \"" + m.name + L"\" is already used by " + it->second);
    if (m.type == 3) {
      std::wstring designer = DesignerFileName(m, file);
      auto it = std::find_if(otherFiles.begin(), otherFiles.end(),
                             [&](const std::wstring& f) { return vba::EqualsText(f, designer); });
      if (it != otherFiles.end()) m.designer = fs.ReadFile(JoinPath(folder, *it));
    }
    p.modules.push_back(std::move(m));
    p.moduleFiles.push_back(file);
  }
  return p;
}

void SaveProjectFolder(FileSystem& fs, const ProjectFolder& project) {
  using Pending = FileWrite;
  std::vector<Pending> writes;
  std::vector<std::wstring> files;
  std::map<std::wstring, std::wstring, vba::TextLess> moduleOfFile;
  auto add = [&](const std::wstring& file, std::string bytes, const std::wstring& module) {
    if (auto [it, added] = moduleOfFile.emplace(file, module); !added)
      vba::Raise(vba::kErrFileAlreadyExists, L"Cannot save " + module + L" and " + it->second +
                                                 L" both as " + JoinPath(project.folder, file));
    writes.push_back({JoinPath(project.folder, file), std::move(bytes)});
  };
  for (std::size_t i = 0; i < project.modules.size(); ++i) {
    const ModuleFile& m = project.modules[i];
    std::wstring file = i < project.moduleFiles.size() && !project.moduleFiles[i].empty()
                            ? project.moduleFiles[i]
                            : m.name + ModuleExtension(m.type);
    files.push_back(file);
    add(file, SerializeModuleFile(m), m.name);
    if (m.type == 3 && !m.designer.empty()) add(DesignerFileName(m, file), m.designer, m.name);
  }

  if (auto bytes = ProjectFileBytes(fs, project, files)) add(std::wstring(kProjectFile), std::move(*bytes), L"the project");

  if (!fs.FolderExists(project.folder)) fs.CreateFolder(project.folder);
  // The changed files are written as one set: all of them or, on a failure, none.
  std::vector<FileWrite> changed;
  for (Pending& w : writes) {
    if (fs.FileExists(w.path) && fs.ReadFile(w.path) == w.bytes) continue;
    changed.push_back({std::move(w.path), std::move(w.bytes)});
  }
  if (!changed.empty()) fs.WriteFiles(changed);
}

}  // namespace quillet::io
