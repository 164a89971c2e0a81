#include "frontends/studio/studio_server.h"

#include <httplib.h>

#include <cctype>
#include <csignal>
#include <pthread.h>
#include <thread>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

#include "frontends/studio/studio_assets.h"
#include "frontends/studio/studio_engine.h"
#include "vba/encoding.h"

#ifndef QUILLET_PICTURES_DIR
#define QUILLET_PICTURES_DIR "resources/pictures"
#endif

namespace quillet::studio {
namespace {

using nlohmann::json;
constexpr const char* kCookie = "quillet_token";
// How long a wait for a new state is held open before it answers with the current one.
constexpr std::chrono::seconds kLongPoll{20};

std::string Cookie(const httplib::Request& req, const std::string& name) {
  std::string all = req.get_header_value("Cookie");
  std::size_t i = 0;
  while (i < all.size()) {
    std::size_t end = all.find(';', i);
    if (end == std::string::npos) end = all.size();
    std::string part = all.substr(i, end - i);
    while (!part.empty() && part.front() == ' ') part.erase(part.begin());
    if (part.rfind(name + "=", 0) == 0) return part.substr(name.size() + 1);
    i = end + 1;
  }
  return "";
}

// Compares without leaking where two texts differ through the time taken.
bool SameSecret(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  unsigned char diff = 0;
  for (std::size_t i = 0; i < a.size(); ++i) diff |= static_cast<unsigned char>(a[i] ^ b[i]);
  return diff == 0;
}

void Refuse(httplib::Response& res, int status, const std::string& why) {
  res.status = status;
  res.set_content(json{{"ok", false}, {"error", why}}.dump(), "application/json");
}

void SendJson(httplib::Response& res, const json& j) {
  res.set_content(j.dump(-1, ' ', false, json::error_handler_t::replace), "application/json");
}

std::string ReadFile(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

}  // namespace

std::string MakeToken() {
  std::random_device device;
  std::string out;
  const char* hex = "0123456789abcdef";
  for (int i = 0; i < 16; ++i) {
    unsigned v = device() & 0xff;
    out += hex[v >> 4];
    out += hex[v & 15];
  }
  return out;
}

struct StudioServer::Impl {
  httplib::Server http;
};

StudioServer::StudioServer(StudioEngine& engine)
    : impl_(std::make_unique<Impl>()), engine_(engine), token_(MakeToken()) {
  auto& http = impl_->http;
  // Small replies go out at once: no waiting for more bytes to fill a packet.
  http.set_tcp_nodelay(true);

  http.set_pre_routing_handler([this](const httplib::Request& req, httplib::Response& res) {
    // No DNS rebinding: the Host must be the loopback address and our port.
    std::string host = req.get_header_value("Host");
    std::string port = ":" + std::to_string(port_);
    if (host != "127.0.0.1" + port && host != "localhost" + port) {
      Refuse(res, 403, "this studio answers only to 127.0.0.1" + port);
      return httplib::Server::HandlerResponse::Handled;
    }
    bool fromAddress = req.method == "GET" && req.path == "/" && SameSecret(req.get_param_value("token"), token_);
    if (!fromAddress && !SameSecret(Cookie(req, kCookie), token_)) {
      Refuse(res, 403, "open the address the studio printed; it carries the token");
      return httplib::Server::HandlerResponse::Handled;
    }
    if (req.method != "GET" && req.method != "HEAD") {
      std::string origin = req.get_header_value("Origin");
      if (origin != "http://127.0.0.1" + port && origin != "http://localhost" + port) {
        Refuse(res, 403, "a request that changes something must come from the studio's own page");
        return httplib::Server::HandlerResponse::Handled;
      }
    }
    res.set_header("X-Content-Type-Options", "nosniff");
    res.set_header("Referrer-Policy", "no-referrer");
    res.set_header("Cache-Control", "no-store");
    return httplib::Server::HandlerResponse::Unhandled;
  });

  http.Get("/", [this](const httplib::Request& req, httplib::Response& res) {
    if (req.has_param("token")) {
      // The token moves from the address into a cookie the page's scripts cannot read.
      res.set_header("Set-Cookie", std::string(kCookie) + "=" + token_ + "; HttpOnly; SameSite=Strict; Path=/");
      res.set_redirect("/", 303);
      return;
    }
    std::string nonce = MakeToken();
    std::string page(StudioAsset("index.html"));
    for (std::size_t at; (at = page.find("{{NONCE}}")) != std::string::npos;) page.replace(at, 9, nonce);
    res.set_header("Content-Security-Policy",
                   "default-src 'none'; script-src 'self'; style-src 'self' 'nonce-" + nonce +
                       "'; img-src 'self'; connect-src 'self'; base-uri 'none'; form-action 'none'; "
                       "frame-ancestors 'none'");
    res.set_content(page, "text/html; charset=utf-8");
  });
  http.Get("/studio.js", [](const httplib::Request&, httplib::Response& res) {
    res.set_content(std::string(StudioAsset("studio.js")), "text/javascript; charset=utf-8");
  });
  http.Get("/studio.css", [](const httplib::Request&, httplib::Response& res) {
    res.set_content(std::string(StudioAsset("studio.css")), "text/css; charset=utf-8");
  });
  http.Get("/favicon.ico", [](const httplib::Request&, httplib::Response& res) { res.status = 204; });
  http.Get(R"(/pictures/(\d+m?)\.bmp)", [](const httplib::Request& req, httplib::Response& res) {
    std::filesystem::path p = std::filesystem::path(QUILLET_PICTURES_DIR) / (req.matches[1].str() + ".bmp");
    if (!std::filesystem::is_regular_file(p)) return Refuse(res, 404, "no such picture");
    res.set_content(ReadFile(p), "image/bmp");
  });

  http.Get("/api/state", [this](const httplib::Request& req, httplib::Response& res) {
    long long since = req.has_param("since") ? std::atoll(req.get_param_value("since").c_str()) : -1;
    SendJson(res, engine_.WaitState(since, kLongPoll));
  });
  http.Get("/api/files", [this](const httplib::Request& req, httplib::Response& res) {
    try {
      SendJson(res, engine_.ListFolder(vba::FromUtf8(req.get_param_value("folder"))));
    } catch (const RequestError& e) {
      Refuse(res, e.status, e.message);
    }
  });
  http.Post("/api/action", [this](const httplib::Request& req, httplib::Response& res) {
    json action = json::parse(req.body, nullptr, false);
    if (action.is_discarded()) return Refuse(res, 400, "the action is not valid JSON");
    try {
      SendJson(res, engine_.Act(action));
    } catch (const RequestError& e) {
      Refuse(res, e.status, e.message);
    }
  });
}

StudioServer::~StudioServer() = default;

bool StudioServer::Bind(int port) {
  if (port == 0) {
    port_ = impl_->http.bind_to_any_port("127.0.0.1");
    return port_ > 0;
  }
  port_ = port;
  return impl_->http.bind_to_port("127.0.0.1", port);
}

std::string StudioServer::Address() const {
  return "http://127.0.0.1:" + std::to_string(port_) + "/?token=" + token_;
}

void StudioServer::Listen() { impl_->http.listen_after_bind(); }

void StudioServer::Stop() { impl_->http.stop(); }

int RunStudioCommand(int argc, char** argv) {
  std::filesystem::path folder;
  int port = 0;
  for (int i = 0; i < argc; ++i) {
    std::string a = argv[i];
    if (a == "--port" && i + 1 < argc) {
      port = std::atoi(argv[++i]);
    } else if (!a.empty() && a[0] == '-') {
      std::fprintf(stderr, "usage: quillet studio [FOLDER] [--port N]\n");
      return 2;
    } else {
      folder = a;
    }
  }
  if (folder.empty()) folder = QUILLET_SAMPLE_PROJECT;
  // The signals that stop the studio are taken by the main thread alone.
  sigset_t stopSignals;
  sigemptyset(&stopSignals);
  sigaddset(&stopSignals, SIGINT);
  sigaddset(&stopSignals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);
  try {
    StudioEngine engine(folder);
    StudioServer server(engine);
    if (!server.Bind(port)) {
      std::fprintf(stderr, "quillet studio: cannot listen on 127.0.0.1:%d\n", port);
      return 1;
    }
    std::printf("Quillet studio on %s\nopen %s\n", std::filesystem::canonical(folder).string().c_str(),
                server.Address().c_str());
    std::fflush(stdout);
    // Ctrl+C or a termination request ends the studio: the waits for new states are
    // released first, so the server stops at once.
    std::thread listening([&] { server.Listen(); });
    int signal = 0;
    sigwait(&stopSignals, &signal);
    engine.Close();
    server.Stop();
    listening.join();
  } catch (const std::exception& e) {
    std::fprintf(stderr, "quillet studio: %s\n", e.what());
    return 1;
  }
  return 0;
}

}  // namespace quillet::studio
