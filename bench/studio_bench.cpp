// The studio's HTTP interface: a statement command's round trip from the page's request to
// the studio's reply (the code written, the state published), and the size of the page's
// script bundle.
#include <httplib.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <thread>

#include "bench.h"
#include "frontends/studio/studio_assets.h"
#include "frontends/studio/studio_engine.h"
#include "frontends/studio/studio_server.h"


namespace quillet::bench {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

std::string StatementRoundTrip() {
  fs::path folder = fs::temp_directory_path() / ("quillet-studio-bench-" + studio::MakeToken().substr(0, 8));
  fs::copy(QUILLET_SAMPLE_PROJECT, folder, fs::copy_options::recursive);
  std::vector<double> times;
  {
    studio::StudioEngine engine(folder);
    studio::StudioServer server(engine);
    if (!server.Bind(0)) return "no port";
    std::thread listening([&] { server.Listen(); });
    httplib::Client client("127.0.0.1", server.Port());
    client.set_keep_alive(true);  // as the browser keeps its connection
    client.set_tcp_nodelay(true);
    httplib::Headers headers{{"Cookie", "quillet_token=" + server.Token()},
                             {"Origin", "http://127.0.0.1:" + std::to_string(server.Port())}};
    auto post = [&](const json& action) {
      auto r = client.Post("/api/action", headers, action.dump(), "application/json");
      return r && r->status == 200;
    };
    // The caret on an empty line of a procedure's body.
    post({{"do", "open"}, {"component", "basUtilities"}});
    json state = json::parse(client.Get("/api/state", headers)->body);
    long end = 0;
    for (std::size_t i = 0; i < state["active"]["lines"].size() && !end; ++i)
      if (state["active"]["lines"][i] == "End Function") end = static_cast<long>(i + 1);
    post({{"do", "select"}, {"selection", {end, 1, end, 1}}});
    post({{"do", "keys"}, {"keys", {{{"name", "ENTER"}}}}});
    for (int i = 0; i < 60; ++i) {
      post({{"do", "select"}, {"selection", {end, 1, end, 1}}});
      auto start = std::chrono::steady_clock::now();
      bool ok = post({{"do", "command"}, {"command", "Exit Function"}});
      double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
      if (!ok) return "refused";
      if (i >= 10) times.push_back(ms);  // the first ones warm up
    }
    server.Stop();
    listening.join();
  }
  fs::remove_all(folder);
  std::sort(times.begin(), times.end());
  char text[32];
  std::snprintf(text, sizeof text, "%.3f", times[times.size() / 2]);
  return text;
}

Register roundTrip({.name = "studio: statement command over HTTP, median ms",
                    .target = "< 10 ms",
                    .report = StatementRoundTrip});

Register bundle({.name = "studio: page script bundle, kB",
                 .target = "< 400 kB",
                 .report = [] {
                   char text[32];
                   std::snprintf(text, sizeof text, "%.1f", studio::StudioAsset("studio.js").size() / 1000.0);
                   return std::string(text);
                 }});

}  // namespace
}  // namespace quillet::bench
