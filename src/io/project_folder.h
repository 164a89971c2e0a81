#pragma once
// A project stored as a folder of exported modules, with an optional project file
// ("project.json") that gives the project's name, its file name and its references.
#include <string>
#include <vector>

#include "io/filesystem.h"
#include "io/module_file.h"

namespace quillet::io {

struct ReferenceInfo {
  std::wstring name{};
  std::wstring fullPath{};
  std::wstring guid{};
  std::wstring description{};
  int major = 0, minor = 0;
  bool isBroken = false;
  bool builtIn = false;

  bool operator==(const ReferenceInfo&) const = default;
};

struct ProjectFolder {
  std::wstring folder;        // Windows path of the folder
  std::wstring name = L"VBAProject";
  std::wstring fileName;      // the host document, such as "C:\Work\Book1.xlsm"; may be empty
  int protection = 0;
  std::vector<ReferenceInfo> references;  // default: VBA, the host library, stdole, Office
  std::vector<ModuleFile> modules;        // in the order of the project file, else by name
  std::vector<std::wstring> moduleFiles;  // file name of each module within the folder
  bool hasProjectFile = false;            // the folder holds a project file
};

// The references of a project without a project file: VBA, the host library "Excel",
// "stdole" and "Office".
std::vector<ReferenceInfo> DefaultReferences();

// Loads every .bas, .cls and .frm of the folder (a form's .frx beside it is its designer
// part). A file that cannot be read raises vba::Error naming the file; nothing is written.
// Two files that name the same module are refused.
ProjectFolder LoadProjectFolder(const FileSystem& fs, std::wstring_view folder);
// Writes every module (unchanged ones byte for byte), the project file when the project
// has one or its data differ from the defaults, and deletes nothing. A file whose bytes
// are already those to write is left untouched; a missing folder is made. All or nothing:
// two modules that would share one file are refused before anything is written, and the
// changed files are staged together and replace the old ones only when all are written,
// so a failure half-way (a file that is a folder, a full disk) leaves the folder as it was.
void SaveProjectFolder(FileSystem& fs, const ProjectFolder& project);

}  // namespace quillet::io
