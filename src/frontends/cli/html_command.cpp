#include "frontends/cli/html_command.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "codetools/vb2html.h"
#include "frontends/cli/sandbox.h"
#include "io/filesystem.h"
#include "io/module_file.h"
#include "io/project_folder.h"
#include "settings/text_codec.h"
#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/strings.h"

namespace quillet::cli {
namespace {

namespace fs = std::filesystem;

int Usage() {
  std::cerr << "usage: quillet html FILE.bas|FILE.cls|FOLDER [-o OUT]\n";
  return 2;
}

std::string ReadBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteBytes(const fs::path& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
  if (!out) throw std::runtime_error("cannot write " + path.string());
}

// The shipped template beside the program's defaults; the built-in page when it is missing.
std::wstring PageTemplate() {
  fs::path file = DataFolder() / vba::ToUtf8(codetools::kHtmlTemplateFile);
  std::error_code ec;
  if (!fs::is_regular_file(file, ec)) return codetools::DefaultHtmlTemplate();
  std::wstring text = settings::DecodeText(ReadBytes(file)).text;
  return text.empty() ? codetools::DefaultHtmlTemplate() : text;
}

std::string Page(const std::wstring& templateText, const io::ModuleFile& module) {
  std::wstring html = codetools::VB2HTML(vba::JoinLines(module.code));
  return vba::ToUtf8(codetools::HtmlPage(templateText, html, module.name, L"", L"utf-8"));
}

// The Windows path of a real path, as the module loader speaks: the root is drive Z:.
std::wstring WindowsPath(const fs::path& real) {
  std::wstring path = L"Z:" + vba::FromUtf8(fs::absolute(real).lexically_normal().string());
  for (wchar_t& c : path)
    if (c == L'/') c = L'\\';
  if (path.size() > 3 && path.back() == L'\\') path.pop_back();
  return path;
}

}  // namespace

int RunHtmlCommand(int argc, char** argv) {
  fs::path input, output;
  for (int k = 0; k < argc; ++k) {
    if (std::strcmp(argv[k], "-o") == 0) {
      if (++k >= argc || !output.empty()) return Usage();
      output = argv[k];
    } else if (input.empty()) {
      input = argv[k];
    } else {
      return Usage();
    }
  }
  if (input.empty()) return Usage();
  try {
    std::wstring templateText = PageTemplate();
    std::error_code ec;
    if (fs::is_directory(input, ec)) {
      io::MappedFileSystem files(fs::temp_directory_path() / "quillet-no-drives", true);
      io::ProjectFolder project = io::LoadProjectFolder(files, WindowsPath(input));
      fs::path folder = output.empty() ? input : output;
      fs::create_directories(folder, ec);
      for (const io::ModuleFile& module : project.modules) {
        fs::path page = folder / (vba::ToUtf8(module.name) + ".html");
        WriteBytes(page, Page(templateText, module));
        std::cout << page.string() << "\n";
      }
      return 0;
    }
    io::ModuleFile module = io::ParseModuleFile(ReadBytes(input), vba::FromUtf8(input.filename().string()));
    fs::path page = output.empty() ? fs::path(input).replace_extension(".html") : output;
    WriteBytes(page, Page(templateText, module));
    std::cout << page.string() << "\n";
    return 0;
  } catch (const std::exception& e) {
    std::cerr << "quillet html: " << e.what() << "\n";
    return 1;
  }
}

}  // namespace quillet::cli
