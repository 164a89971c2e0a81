// A real browser shows the page `quillet html` writes with the shipped template: its
// visible code text is the module's text, character for character.
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

namespace fs = std::filesystem;

std::string FindChromium() {
  const char* path = std::getenv("PATH");
  std::stringstream dirs(path ? path : "/usr/bin");
  std::string dir;
  while (std::getline(dirs, dir, ':'))
    for (const char* name : {"chromium", "chromium-browser"}) {
      fs::path candidate = fs::path(dir) / name;
      if (::access(candidate.c_str(), X_OK) == 0) return candidate.string();
    }
  return {};
}

std::string Read(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void Write(const fs::path& p, const std::string& bytes) { std::ofstream(p, std::ios::binary) << bytes; }

std::string Output(const std::string& command) {
  std::string out;
  FILE* pipe = ::popen(command.c_str(), "r");
  if (!pipe) return out;
  std::array<char, 4096> buffer;
  while (std::size_t n = std::fread(buffer.data(), 1, buffer.size(), pipe)) out.append(buffer.data(), n);
  ::pclose(pipe);
  return out;
}

void ReplaceAll(std::string& s, const std::string& from, const std::string& to) {
  for (std::size_t at = s.find(from); at != std::string::npos; at = s.find(from, at + to.size())) s.replace(at, from.size(), to);
}

// The code of an exported standard module: the lines behind its Attribute lines, joined by LF.
std::string CodeOf(std::string file) {
  ReplaceAll(file, "\r\n", "\n");
  std::size_t start = 0;
  while (file.compare(start, 10, "Attribute ") == 0) start = file.find('\n', start) + 1;
  std::string code = file.substr(start);
  while (!code.empty() && code.back() == '\n') code.pop_back();
  return code;
}

class Browser : public ::testing::Test {
 protected:
  void SetUp() override {
    chromium_ = FindChromium();
    if (chromium_.empty())
      GTEST_SKIP() << "chromium is not installed (Debian package \"chromium\", which ./dev.sh installs), so no real "
                      "browser checks the page";
    folder_ = fs::temp_directory_path() / ("quillet-browser-" + std::to_string(::getpid()));
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override {
    std::error_code ec;
    if (!folder_.empty()) fs::remove_all(folder_, ec);
  }

  // The text the browser shows in the page's code, blanks that cannot break included.
  std::string VisibleCode(const fs::path& module) {
    fs::path page = folder_ / (module.stem().string() + ".html");
    std::string command = std::string(QUILLET_BINARY) + " html '" + module.string() + "' -o '" + page.string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    // The page itself stays as written; a copy gets a script that puts what the browser
    // renders (innerText) into an element that --dump-dom shows.
    std::string html = Read(page);
    ReplaceAll(html, "</body>",
               "<script>var p = document.createElement('pre'); p.id = 'visible';"
               "p.textContent = document.querySelector('.code').innerText; document.body.appendChild(p);</script></body>");
    fs::path probe = folder_ / "probe.html";
    Write(probe, html);
    std::string dom = Output("timeout 120 " + chromium_ +
                          " --headless --no-sandbox --disable-gpu --disable-background-networking --no-first-run"
                          " --user-data-dir='" + (folder_ / ("profile-" + module.stem().string())).string() +
                          "' --dump-dom 'file://" + probe.string() + "' 2>/dev/null");
    std::size_t open = dom.find("<pre id=\"visible\">");
    std::size_t close = dom.find("</pre>", open);
    if (open == std::string::npos || close == std::string::npos) {
      ADD_FAILURE() << "the browser gave no page: " << dom.substr(0, 400);
      return {};
    }
    std::string text = dom.substr(open + 18, close - open - 18);
    ReplaceAll(text, "&nbsp;", " ");
    ReplaceAll(text, "&lt;", "<");
    ReplaceAll(text, "&gt;", ">");
    ReplaceAll(text, "&amp;", "&");
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
  }

  std::string chromium_;
  fs::path folder_;
};

TEST_F(Browser, ShowsTheCodeOfAModuleWithEveryKindOfToken) {
  fs::path module = folder_ / "modTokens.bas";
  Write(module,
        "Attribute VB_Name = \"modTokens\"\r\n"
        "Option Explicit\r\n"
        "\r\n"
        "'   a comment  with   blanks <b> & more\r\n"
        "Public Function Wrap(ByVal s As String) As String\r\n"
        "    Dim EndTime As Long, Str2 As String  ' trailing comment\r\n"
        "    If s <> \"\" And Len(s) > 2 Then\r\n"
        "        Wrap = \"<td  class=\"\"x\"\">\" & s & \"</td>\"\r\n"
        "    ElseIf s = \"caf\xE9\" Then\r\n"
        "        Wrap = Chr(&H41) & \"   three blanks\"\r\n"
        "    End If\r\n"
        "End Function\r\n");
  // The module is Windows-1252, the page UTF-8.
  std::string code = CodeOf(Read(module));
  ReplaceAll(code, "caf\xE9", "caf\xC3\xA9");
  EXPECT_EQ(VisibleCode(module), code);
}

TEST_F(Browser, ShowsASampleModuleAsItIs) {
  fs::path module = fs::path(QUILLET_SOURCE_DIR) / "sample" / "Invoicing" / "basInvoicing.bas";
  std::string code = CodeOf(Read(module));
  ASSERT_NE(code.find("Public "), std::string::npos);
  ASSERT_EQ(code.find("\nAttribute "), std::string::npos);
  EXPECT_EQ(VisibleCode(module), code);
}

}  // namespace

namespace {

// Without a browser: the command line's folder mode and its refusals.
TEST(HtmlCommand, WritesAPagePerModuleOfAFolderAndRefusesWhatIsNoModule) {
  fs::path out = fs::temp_directory_path() / ("quillet-html-" + std::to_string(::getpid()));
  fs::remove_all(out);
  std::string quillet = QUILLET_BINARY;
  fs::path sample = fs::path(QUILLET_SOURCE_DIR) / "sample" / "Invoicing";
  ASSERT_EQ(std::system((quillet + " html '" + sample.string() + "' -o '" + out.string() + "' >/dev/null").c_str()), 0);
  int pages = 0;
  for (const auto& e : fs::directory_iterator(out)) pages += e.path().extension() == ".html";
  EXPECT_EQ(pages, 14);
  std::string page = Read(out / "clsInvoice.html");
  EXPECT_NE(page.find("<title>clsInvoice</title>"), std::string::npos);
  EXPECT_NE(page.find("charset=utf-8"), std::string::npos);
  EXPECT_EQ(page.find("VERSION 1.0 CLASS"), std::string::npos);  // the header is no code

  fs::path readme = fs::path(QUILLET_SOURCE_DIR) / "README.md";
  std::string refused = Output(quillet + " html '" + readme.string() + "' -o '" + (out / "x.html").string() + "' 2>&1");
  EXPECT_NE(refused.find("Cannot load README.md: no \"Attribute VB_Name\" line"), std::string::npos) << refused;
  EXPECT_FALSE(fs::exists(out / "x.html"));
  EXPECT_NE(std::system((quillet + " html >/dev/null 2>&1").c_str()), 0);
  fs::remove_all(out);
}

}  // namespace
