#include "io/project_folder.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "support.h"

namespace quillet::io {
namespace {

using testing::Caught;
using testing::TempDrives;
using testing::Text;
using namespace std::string_literals;

const std::string kModule = "Attribute VB_Name = \"Module1\"\r\nOption Explicit\r\n\r\nSub Main()\r\nEnd Sub\r\n";
const std::string kClass =
    "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\nAttribute VB_Name = \"Class1\"\r\n"
    "Attribute VB_GlobalNameSpace = False\r\nAttribute VB_Creatable = False\r\n"
    "Attribute VB_PredeclaredId = False\r\nAttribute VB_Exposed = False\r\n"
    "Public Property Get Value() As Long\r\nAttribute Value.VB_UserMemId = 0\r\nEnd Property\r\n";
const std::string kForm =
    "VERSION 5.00\r\nBegin {C62A69F0-16DC-11CE-9E98-00AA00608C0F} UserForm1\r\n"
    "   OleObjectBlob   =   \"UserForm1.frx\":0000\r\nEnd\r\n"
    "Attribute VB_Name = \"UserForm1\"\r\nAttribute VB_PredeclaredId = True\r\n";
const std::string kDesigner = "\x01\x00\x02\xFFprops"s;

void PutProject(const TempDrives& d) {
  d.Put("c/Work/Module1.bas", kModule);
  d.Put("c/Work/Class1.cls", kClass);
  d.Put("c/Work/UserForm1.frm", kForm);
  d.Put("c/Work/userform1.FRX", kDesigner);
  d.Put("c/Work/Notes.txt", "not a module");
}

ino_t Inode(const TempDrives& d, const char* relative) {
  struct stat st {};
  ::stat((d.root() / relative).c_str(), &st);
  return st.st_ino;
}

TEST(ProjectFolder, LoadsAndSavesUnchangedByteForByte) {
  TempDrives d;
  PutProject(d);
  auto before = d.Picture();
  ino_t moduleInode = Inode(d, "c/Work/Module1.bas");

  ProjectFolder p = LoadProjectFolder(d.files(), L"C:\\work");
  EXPECT_EQ(p.name, L"VBAProject");
  EXPECT_EQ(p.fileName, L"");
  EXPECT_FALSE(p.hasProjectFile);
  ASSERT_EQ(p.references.size(), 4u);
  EXPECT_EQ(p.references[0].name, L"VBA");
  EXPECT_EQ(p.references[1].name, L"Excel");
  EXPECT_EQ(p.moduleFiles, (std::vector<std::wstring>{L"Class1.cls", L"Module1.bas", L"UserForm1.frm"}));
  ASSERT_EQ(p.modules.size(), 3u);
  EXPECT_EQ(p.modules[0].type, 2);
  EXPECT_EQ(p.modules[2].designer, kDesigner);

  SaveProjectFolder(d.files(), p);
  EXPECT_EQ(d.Picture(), before);  // nothing added, nothing changed
  EXPECT_EQ(Inode(d, "c/Work/Module1.bas"), moduleInode);  // not even rewritten

  // A changed module is rewritten alone, its member attribute in place, the designer beside it.
  p.modules[0].code.insert(p.modules[0].code.begin(), L"Option Explicit");
  p.modules[2].code.push_back(L"' form code");
  p.modules[2].designer += "more";
  SaveProjectFolder(d.files(), p);
  auto after = d.Picture();
  EXPECT_EQ(after["c/Work/Module1.bas"], kModule);
  EXPECT_EQ(after["c/Work/Class1.cls"],
            "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\nAttribute VB_Name = \"Class1\"\r\n"
            "Attribute VB_GlobalNameSpace = False\r\nAttribute VB_Creatable = False\r\n"
            "Attribute VB_PredeclaredId = False\r\nAttribute VB_Exposed = False\r\nOption Explicit\r\n"
            "Public Property Get Value() As Long\r\nAttribute Value.VB_UserMemId = 0\r\nEnd Property\r\n");
  EXPECT_EQ(after["c/Work/UserForm1.frm"], kForm + "' form code\r\n");
  EXPECT_EQ(after["c/Work/userform1.FRX"], kDesigner + "more");
  EXPECT_EQ(after.size(), before.size());
}

TEST(ProjectFolder, ReadsAndWritesTheProjectFile) {
  TempDrives d;
  PutProject(d);
  d.Put("c/Work/Project.JSON",
        "{\"name\": \"\xD0\x9F\xD1\x80\xD0\xBE\xD0\xB5\xD0\xBA\xD1\x82\", \"fileName\": \"C:\\\\Work\\\\Book1.xlsm\","
        " \"references\": [{\"name\": \"VBA\", \"major\": 4, \"minor\": 2, \"builtIn\": true},"
        " {\"name\": \"Scripting\", \"broken\": true}],"
        " \"components\": [\"UserForm1.frm\", \"gone.bas\", \"module1.bas\"], \"note\": \"kept\"}");
  auto before = d.Picture();

  ProjectFolder p = LoadProjectFolder(d.files(), L"C:\\Work\\");
  EXPECT_TRUE(p.hasProjectFile);
  EXPECT_EQ(p.name, L"Проект");
  EXPECT_EQ(p.fileName, L"C:\\Work\\Book1.xlsm");
  ASSERT_EQ(p.references.size(), 2u);
  EXPECT_TRUE(p.references[0].builtIn);
  EXPECT_EQ(p.references[0].major, 4);
  EXPECT_TRUE(p.references[1].isBroken);
  EXPECT_EQ(p.moduleFiles, (std::vector<std::wstring>{L"UserForm1.frm", L"Module1.bas", L"Class1.cls"}));

  SaveProjectFolder(d.files(), p);
  EXPECT_EQ(d.Picture(), before);  // the same data: the project file stays as written

  p.name = L"Renamed";
  p.modules.push_back(NewModuleFile(L"Alpha", 1));
  SaveProjectFolder(d.files(), p);
  ProjectFolder again = LoadProjectFolder(d.files(), L"C:\\Work");
  EXPECT_EQ(again.name, L"Renamed");
  EXPECT_EQ(again.references, p.references);
  EXPECT_EQ(again.moduleFiles,
            (std::vector<std::wstring>{L"UserForm1.frm", L"Module1.bas", L"Class1.cls", L"Alpha.bas"}));
  EXPECT_NE(d.Get("c/Work/Project.JSON").find("\"note\": \"kept\""), std::string::npos);
  EXPECT_FALSE(d.Picture().contains("c/Work/project.json"));

  // Without a project file, one is written only for data that differ from the defaults.
  TempDrives plain;
  plain.Put("c/P/Module1.bas", kModule);
  ProjectFolder q = LoadProjectFolder(plain.files(), L"C:\\P");
  q.modules.push_back(NewModuleFile(L"Zulu", 1));
  SaveProjectFolder(plain.files(), q);
  EXPECT_FALSE(plain.Picture().contains("c/P/project.json"));
  EXPECT_EQ(plain.Get("c/P/Zulu.bas"), "Attribute VB_Name = \"Zulu\"\r\n");
  q.fileName = L"C:\\P\\Book.xlsm";
  SaveProjectFolder(plain.files(), q);
  EXPECT_EQ(LoadProjectFolder(plain.files(), L"C:\\P").fileName, L"C:\\P\\Book.xlsm");
}

TEST(ProjectFolder, AFailedLoadNamesTheFileAndChangesNothing) {
  struct Case {
    const char* label;
    std::string file;
    std::string bytes;
    std::string says;
  } cases[] = {
      {"binary", "c/Work/Bad.bas", "Attribute VB_Name = \"Bad\"\r\n\0\0\0"s, "binary"},
      {"no name", "c/Work/Bad.bas", "Sub A()\r\nEnd Sub\r\n", "VB_Name"},
      {"lone CR", "c/Work/Bad.cls", "Attribute VB_Name = \"Bad\"\rSub A()\r\n", "carriage return"},
      {"open BEGIN", "c/Work/Bad.frm", "VERSION 5.00\r\nBegin {X} Bad\r\n   Begin Y\r\n   End\r\n", "no matching END"},
      {"same name twice", "c/Work/Zcopy.bas", kModule, "already used by Module1.bas"},
      {"project file", "c/Work/project.json", "{\"name\": 5}", "\"name\" must be text"},
      {"project JSON", "c/Work/project.json", "{\"name\": ", "not valid JSON"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    TempDrives d;
    PutProject(d);
    d.Put(c.file, c.bytes);
    auto before = d.Picture();
    auto e = Caught([&] { LoadProjectFolder(d.files(), L"C:\\Work"); });
    EXPECT_NE(Text(e).find(c.file.substr(c.file.rfind('/') + 1)), std::string::npos) << Text(e);
    EXPECT_NE(Text(e).find(c.says), std::string::npos) << Text(e);
    EXPECT_EQ(d.Picture(), before);
  }

  TempDrives d;
  EXPECT_EQ(Caught([&] { LoadProjectFolder(d.files(), L"C:\\Missing"); }).Number(), vba::kErrPathNotFound);
}

TEST(ProjectFolder, SavingIsAllOrNothing) {
  TempDrives d;
  PutProject(d);
  ProjectFolder p = LoadProjectFolder(d.files(), L"C:\\Work");
  p.modules[0].code.push_back(L"' changed");  // Class1, saved before the others
  p.modules[1].code.push_back(L"' changed");  // Module1
  p.modules.push_back(NewModuleFile(L"Zed", 1));
  p.moduleFiles.push_back(L"Zed.bas");
  // The new module's file is a folder: nothing may be written, not even the modules before it.
  std::filesystem::create_directories(d.root() / "c/Work/Zed.bas");
  auto before = d.Picture();
  EXPECT_EQ(Caught([&] { SaveProjectFolder(d.files(), p); }).Number(), vba::kErrPathFileAccess);
  EXPECT_EQ(d.Picture(), before) << "no target changed and no staged file left behind";

  std::filesystem::remove(d.root() / "c/Work/Zed.bas");
  SaveProjectFolder(d.files(), p);
  EXPECT_NE(d.Get("c/Work/Class1.cls").find("' changed"), std::string::npos);
  EXPECT_NE(d.Get("c/Work/Module1.bas").find("' changed"), std::string::npos);
  EXPECT_NE(d.Get("c/Work/Zed.bas").find("Attribute VB_Name = \"Zed\""), std::string::npos);
}

}  // namespace
}  // namespace quillet::io
