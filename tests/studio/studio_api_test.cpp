// The studio's HTTP interface, driven as the page drives it: a studio on a free port over a
// copy of the sample project, an HTTP client that carries the token and the studio's Origin.
#include <gtest/gtest.h>
#include <httplib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "frontends/studio/studio_engine.h"
#include "frontends/studio/studio_server.h"

namespace quillet::studio {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

std::string ReadAll(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

class StudioApiTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("quillet-studio-test-" + MakeToken().substr(0, 8));
    fs::copy(fs::path(QUILLET_SOURCE_DIR) / "sample" / "Invoicing", folder_, fs::copy_options::recursive);
    engine_ = std::make_unique<StudioEngine>(folder_);
    server_ = std::make_unique<StudioServer>(*engine_);
    ASSERT_TRUE(server_->Bind(0));
    thread_ = std::thread([this] { server_->Listen(); });
    client_ = std::make_unique<httplib::Client>("127.0.0.1", server_->Port());
    origin_ = "http://127.0.0.1:" + std::to_string(server_->Port());
    // The bar is built once the add-in has connected and the first ticks have come.
    for (int i = 0; i < 100 && State()["bar"].is_null(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  void TearDown() override {
    server_->Stop();
    thread_.join();
    client_.reset();
    server_.reset();
    engine_.reset();
    fs::remove_all(folder_);
  }

  httplib::Headers Headers(bool withToken = true, std::string origin = "") const {
    httplib::Headers h;
    if (withToken) h.emplace("Cookie", "quillet_token=" + server_->Token());
    h.emplace("Origin", origin.empty() ? origin_ : origin);
    return h;
  }
  json State() {
    auto r = client_->Get("/api/state", Headers());
    return r && r->status == 200 ? json::parse(r->body) : json();
  }
  httplib::Result Files(const std::string& folder) {
    return client_->Get("/api/files", httplib::Params{{"folder", folder}}, Headers());
  }
  json Now() {
    auto r = client_->Get("/api/state", Headers());
    EXPECT_TRUE(r && r->status == 200);
    return json::parse(r->body);
  }
  // Posts an action; the HTTP status.
  int Post(const json& action, json* reply = nullptr, const httplib::Headers* headers = nullptr) {
    auto r = client_->Post("/api/action", headers ? *headers : Headers(), action.dump(), "application/json");
    if (!r) return 0;
    if (reply) *reply = json::parse(r->body, nullptr, false);
    return r->status;
  }
  json Act(const json& action) {
    json reply;
    int status = Post(action, &reply);
    EXPECT_EQ(status, 200) << action.dump() << " -> " << reply.dump();
    return reply;
  }
  // Waits until the state satisfies `test` (the engine runs on its own clock).
  json Until(const std::function<bool(const json&)>& test) {
    json s;
    for (int i = 0; i < 200; ++i) {
      s = Now();
      if (test(s)) return s;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ADD_FAILURE() << "the state never came: " << s.dump().substr(0, 400);
    return s;
  }
  // The line number (1-based) of the first line of the active code equal to `text`.
  static long LineOf(const json& s, const std::string& text) {
    const json& lines = s["active"]["lines"];
    for (std::size_t i = 0; i < lines.size(); ++i)
      if (lines[i] == text) return static_cast<long>(i + 1);
    return 0;
  }

  fs::path folder_;
  std::unique_ptr<StudioEngine> engine_;
  std::unique_ptr<StudioServer> server_;
  std::thread thread_;
  std::unique_ptr<httplib::Client> client_;
  std::string origin_;
};

TEST_F(StudioApiTest, EditsWithTheBarAndBoxesAndDialogsThenSavesTheFolder) {
  Act({{"do", "open"}, {"component", "basUtilities"}});
  json s = Now();
  ASSERT_EQ(s["active"]["component"], "basUtilities");
  long end = LineOf(s, "End Function");
  ASSERT_GT(end, 0);
  // A new line above the first End Function, typed as the user would, with the caret in it.
  Act({{"do", "select"}, {"selection", {end, 1, end, 1}}});
  Act({{"do", "keys"}, {"keys", {{{"name", "ENTER"}}}}});
  Act({{"do", "select"}, {"selection", {end, 1, end, 1}}});
  s = Now();
  EXPECT_EQ(s["active"]["lines"][end - 1], "");
  EXPECT_TRUE(s["projects"][0]["dirty"]);

  // The bar follows the caret: within a few heartbeats If Then can be clicked; it writes
  // the block.
  json reply;
  int status = 0;
  for (int i = 0; i < 100 && (status = Post({{"do", "click"}, {"handler", "mnuhIfThen"}}, &reply)) == 409; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  ASSERT_EQ(status, 200) << reply.dump();
  s = Now();
  EXPECT_EQ(s["active"]["lines"][end - 1], "    If  Then");
  long ifLine = end;

  // A command that asks: the reply comes while the box waits; the answer finishes it.
  Act({{"do", "select"}, {"selection", {ifLine + 1, 1, ifLine + 1, 1}}});
  reply = Act({{"do", "command"}, {"command", "If Then Else If"}});
  EXPECT_EQ(reply["waiting"], true);
  s = Until([](const json& st) { return !st["ask"].is_null(); });
  EXPECT_EQ(s["ask"]["kind"], "inputbox");
  EXPECT_EQ(s["ask"]["prompt"], "Number of 'ElseIf'");
  // While the box waits, nothing else is done.
  EXPECT_EQ(Post({{"do", "click"}, {"handler", "mnuhIfThen"}}), 409);
  Act({{"do", "answer"}, {"value", "1"}});
  s = Until([](const json& st) { return st["ask"].is_null(); });
  EXPECT_GT(LineOf(s, "    ElseIf Then"), 0) << s["active"]["lines"].dump();

  // The settings dialog: drawn from its description, driven to OK.
  reply = Act({{"do", "click"}, {"handler", "mnuhSetting"}});
  EXPECT_EQ(reply["waiting"], true);
  s = Until([](const json& st) { return !st["forms"].empty(); });
  const json& form = s["forms"][0];
  EXPECT_EQ(form["form"], "frmSettings");
  EXPECT_EQ(form["modal"], true);
  bool hasDefault = false;
  for (const auto& c : form["controls"]) hasDefault = hasDefault || (c["name"] == "cmdOK" && c.value("default", false));
  EXPECT_TRUE(hasDefault);
  // The editor is behind the modal form.
  EXPECT_EQ(Post({{"do", "keys"}, {"text", "x"}}), 409);
  Act({{"do", "form"}, {"form", "frmSettings"}, {"tab", {{"tabOptions", 4}}}});
  EXPECT_EQ(Post({{"do", "form"}, {"form", "frmSettings"}, {"click", "cmdNoSuchButton"}}), 409);
  Act({{"do", "form"}, {"form", "frmSettings"}, {"click", "cmdOK"}});
  s = Until([](const json& st) { return st["forms"].empty(); });

  // Save: the folder holds what the pane shows, and nothing is unsaved any more.
  Act({{"do", "save"}});
  s = Now();
  EXPECT_FALSE(s["projects"][0]["dirty"]);
  std::string file = ReadAll(folder_ / "basUtilities.bas");
  EXPECT_NE(file.find("    If  Then\r\n"), std::string::npos);
  EXPECT_NE(file.find("    ElseIf Then\r\n"), std::string::npos);
}

TEST_F(StudioApiTest, RefusesForeignRequestsAndPathsOutsideTheAllowedFolders) {
  json before = Now();
  long long revision = before["revision"];
  auto status = [&](const httplib::Result& r) { return r ? r->status : 0; };

  // No token, a wrong token, a foreign Host, a foreign Origin.
  EXPECT_EQ(status(client_->Get("/api/state")), 403);
  EXPECT_EQ(status(client_->Get("/", httplib::Headers{})), 403);
  httplib::Headers wrongToken{{"Cookie", "quillet_token=00000000000000000000000000000000"}, {"Origin", origin_}};
  EXPECT_EQ(status(client_->Get("/api/state", wrongToken)), 403);
  httplib::Headers rebound = Headers();
  rebound.emplace("Host", "evil.example:" + std::to_string(server_->Port()));
  EXPECT_EQ(status(client_->Get("/api/state", rebound)), 403);
  json typing = {{"do", "keys"}, {"text", "junk"}};
  httplib::Headers foreign = Headers(true, "http://evil.example");
  EXPECT_EQ(Post(typing, nullptr, &foreign), 403);
  httplib::Headers noToken = Headers(false);
  EXPECT_EQ(Post(typing, nullptr, &noToken), 403);
  httplib::Headers rebound2 = Headers();
  rebound2.emplace("Host", "localhost.evil.example");
  EXPECT_EQ(Post(typing, nullptr, &rebound2), 403);

  // The address with the token sets the cookie and leads to the page, which allows only
  // its own scripts.
  auto page = client_->Get(("/?token=" + server_->Token()).c_str());
  ASSERT_TRUE(page);
  EXPECT_EQ(page->status, 303);
  std::string cookie = page->get_header_value("Set-Cookie");
  EXPECT_NE(cookie.find("HttpOnly"), std::string::npos);
  EXPECT_NE(cookie.find("SameSite=Strict"), std::string::npos);
  auto index = client_->Get("/", Headers());
  ASSERT_TRUE(index);
  EXPECT_NE(index->get_header_value("Content-Security-Policy").find("script-src 'self'"), std::string::npos);

  // Browsing: the project folder yes, the root of the machine no.
  std::wstring projectWin = engine_->WindowsPathOf(fs::canonical(folder_));
  std::string projectUtf8(projectWin.begin(), projectWin.end());
  auto list = Files(projectUtf8);
  ASSERT_TRUE(list);
  EXPECT_EQ(list->status, 200);
  EXPECT_NE(list->body.find("basMain.bas"), std::string::npos);
  EXPECT_EQ(status(Files("Z:\\etc")), 403);
  EXPECT_EQ(status(Files(projectUtf8 + "\\..\\..")), 403);

  // Nothing above changed the session.
  json after = Now();
  EXPECT_EQ(after["active"], before["active"]);

  // A file picker answered with a path outside is refused and keeps waiting.
  Act({{"do", "open"}, {"component", "basMain"}});
  long line = LineOf(Now(), "End Sub");
  Act({{"do", "select"}, {"selection", {line, 1, line, 1}}});
  Act({{"do", "keys"}, {"keys", {{{"name", "ENTER"}}}}});
  Act({{"do", "select"}, {"selection", {line, 1, line, 1}}});
  Act({{"do", "command"}, {"command", "Filename"}});
  json s = Until([](const json& st) { return !st["ask"].is_null(); });
  EXPECT_EQ(s["ask"]["kind"], "open");
  EXPECT_EQ(Post({{"do", "answer"}, {"value", "Z:\\etc\\passwd"}}), 403);
  EXPECT_FALSE(Now()["ask"].is_null());
  std::string inside = projectUtf8 + "\\basMain.bas";
  Act({{"do", "answer"}, {"value", inside}});
  s = Until([](const json& st) { return st["ask"].is_null(); });
  EXPECT_NE(s["active"]["lines"].dump().find("basMain.bas"), std::string::npos) << s["active"]["lines"].dump();
  (void)revision;
}

}  // namespace
}  // namespace quillet::studio
