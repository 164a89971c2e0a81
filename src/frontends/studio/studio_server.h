#pragma once
// The studio's web server: the page and its script from the binary, the bar's pictures,
// and the JSON interface to the engine. It listens on the loopback address only and
// admits a request only with the token made at start, the loopback Host, and for
// requests that change something, the studio's own Origin.
#include <filesystem>
#include <memory>
#include <string>

namespace quillet::studio {

class StudioEngine;

class StudioServer {
 public:
  explicit StudioServer(StudioEngine& engine);
  ~StudioServer();

  // Binds 127.0.0.1 on `port` (0: a free one); false when it cannot.
  bool Bind(int port);
  int Port() const { return port_; }
  const std::string& Token() const { return token_; }
  // The address to open: "http://127.0.0.1:PORT/?token=...".
  std::string Address() const;
  // Serves until Stop.
  void Listen();
  void Stop();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
  StudioEngine& engine_;
  std::string token_;
  int port_ = 0;
};

// A random token of 32 hexadecimal digits.
std::string MakeToken();

// `quillet studio [FOLDER] [--port N]`.
int RunStudioCommand(int argc, char** argv);

}  // namespace quillet::studio
