// The in-memory editor on a large project: loading it from a folder of modules, and asking
// for the procedure of every line.
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>

#include "bench.h"
#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "io/filesystem.h"
#include "io/project_folder.h"
#include "vba/encoding.h"

namespace quillet::bench {

std::string ModuleText(int n) {
  std::string t = "Attribute VB_Name = \"Module" + std::to_string(n) + "\"\r\nOption Explicit\r\n";
  t += "Private mCount As Long\r\n\r\n";
  int lines = 4, proc = 0;
  while (lines + 22 <= kLinesPerModule) {
    t += "' Procedure " + std::to_string(proc) + " of the module\r\n";
    t += "Public Function Proc" + std::to_string(proc) + "(ByVal a As Long, _\r\n    ByVal b As Long) As Long\r\n";
    for (int i = 0; i < 16; ++i) t += "    mCount = mCount + a * " + std::to_string(i) + " + b\r\n";
    t += "    Proc" + std::to_string(proc) + " = mCount\r\nEnd Function\r\n\r\n";
    lines += 22;
    ++proc;
  }
  return t;
}

namespace {

constexpr int kModules = 200;

struct LargeProject {
  std::filesystem::path root;
  std::unique_ptr<io::MappedFileSystem> fs;
  LargeProject() {
    root = std::filesystem::temp_directory_path() / ("quillet-bench-" + std::to_string(::getpid()));
    std::filesystem::create_directories(root);
    fs = std::make_unique<io::MappedFileSystem>(root);
    fs->CreateFolder(L"C:\\Big");
    for (int n = 1; n <= kModules; ++n)
      fs->WriteFile(L"C:\\Big\\Module" + std::to_wstring(n) + L".bas", ModuleText(n));
  }
  ~LargeProject() { std::filesystem::remove_all(root); }
};

LargeProject& Project() {
  static LargeProject p;
  return p;
}

std::unique_ptr<host::MemoryPlatform> platform;
std::unique_ptr<host::MemoryVBE> vbe;

void Fresh() {
  vbe.reset();
  platform.reset();
}

void Load() {
  platform = std::make_unique<host::MemoryPlatform>(nullptr);
  vbe = std::make_unique<host::MemoryVBE>(*platform);
  vbe->AddProject(io::LoadProjectFolder(*Project().fs, L"C:\\Big"));
}

Register loadBench({"load a project of 200 modules x 500 lines", "(part of the 50 ms pass)", Fresh, Load, 5});

long sink = 0;
Register procOfLineBench({"ProcOfLine over every line of it (after the load)", "under 50 ms for load + pass",
                          [] {
                            Fresh();
                            Load();
                          },
                          [] {
                            for (const auto& c : vbe->Projects().front()->Components()) {
                              auto m = c->Module();
                              host::ProcKind kind;
                              for (long l = 1, n = m->CountOfLines(); l <= n; ++l) sink += m->ProcOfLine(l, kind).size();
                            }
                          },
                          5});

}  // namespace
}  // namespace quillet::bench
