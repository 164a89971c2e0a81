// The Fragment Builder opened on a library of 5 000 fragments in 200 folders: the tree
// read from disk, the tree view and the first folder's list filled, the first fragment
// previewed and coloured.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "bench.h"
#include "fragments/frm_fragments.h"
#include "hostmodel/clock.h"
#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "io/filesystem.h"
#include "kernel/session.h"
#include "settings/items.h"
#include "support/test_ui_host.h"
#include "ui/ui_context.h"

namespace quillet::bench {
namespace {

constexpr int kFolders = 200;
constexpr int kFragmentsPerFolder = 25;

std::filesystem::path ScratchRoot() {
  std::filesystem::path parent = ::access("/dev/shm", W_OK | X_OK) == 0 ? std::filesystem::path("/dev/shm")
                                                                         : std::filesystem::temp_directory_path();
  return parent / ("quillet-bench-fragments-" + std::to_string(::getpid()));
}

struct Library {
  std::filesystem::path root = ScratchRoot();
  host::MemoryPlatform platform;
  host::MemoryVBE vbe{platform};
  host::Clock clock;
  ui::TestUiHost uiHost;
  ui::UiContext ui{uiHost, clock};
  kernel::Session session{platform, ui};

  static std::unique_ptr<io::FileSystem> Files(const std::filesystem::path& root) {
    auto files = std::make_unique<io::MappedFileSystem>(root);
    files->SetDurable(false);
    return files;
  }

  Library() : platform(Files(root)) {
    session.vbe = &vbe;
    session.settings[settings::kBaseFolder] = std::wstring(L"\\vbcode\\");
    auto project = vbe.AddProject(L"VBAProject", L"C:\\Work\\Book1.xlsm");
    vbe.ActivateComponent(project->AddComponent(L"Module1", host::kStdModule, {L"Sub Main()", L"    ", L"End Sub"}));
    std::filesystem::path fragments = root / "c" / "Program Files" / "Quillet" / "vbcode" / "Fragments";
    for (int f = 0; f < kFolders; ++f) {
      // Ten groups of twenty folders, one level down.
      std::filesystem::path folder = fragments / ("Group " + std::to_string(f / 20)) / ("Folder " + std::to_string(f));
      std::filesystem::create_directories(folder);
      for (int n = 0; n < kFragmentsPerFolder; ++n)
        std::ofstream(folder / ("Fragment " + std::to_string(n) + ".bas"), std::ios::binary)
            << "' Fragment " << n << "\r\nFor {LONG:i} = 1 To {LONG:n=10}\r\n    Debug.Print {LONG:i}<cursor>\r\nNext\r\n";
    }
  }
  ~Library() {
    std::error_code ec;
    std::filesystem::remove_all(root, ec);
  }
};

std::unique_ptr<Library> library;

Register open({"Fragment Builder opened on 5 000 fragments in 200 folders", "under 30 ms",
               [] {
                 if (!library) library = std::make_unique<Library>();
               },
               [] {
                 fragments::FrmFragments form(library->session);
                 form.Init();
                 form.Unload();
               },
               5});

}  // namespace
}  // namespace quillet::bench
