#!/usr/bin/env bash
# Sets up a Debian machine for Quillet, builds it, and runs the main job or the tests.
#   ./dev.sh studio  the main job (also with no argument): the studio on the sample project
#   ./dev.sh demo    the bundled demo on the sample project, printed as JSON
#   ./dev.sh test    every test: unit tests, scenarios
#   ./dev.sh bench   the benchmarks
#   ./dev.sh build   just build
set -euo pipefail
cd "$(dirname "$0")"
job=${1:-studio}
build=${QUILLET_BUILD:-build}

packages=(g++ cmake ninja-build pkg-config libgtest-dev libgmock-dev nlohmann-json3-dev libcpp-httplib-dev)
# The studio's page is bundled with node; the browser test drives Chromium.
command -v node >/dev/null 2>&1 || packages+=(nodejs)
command -v npm >/dev/null 2>&1 || packages+=(npm)
[ -x /usr/bin/chromium ] || packages+=(chromium)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" -ne 0 ]; then echo "dev.sh: missing packages ${missing[*]}; run as root" >&2; exit 1; fi
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

# The page's npm packages (CodeMirror, esbuild, playwright-core), exactly as locked.
web=src/frontends/studio/web
if [ ! -f "$web/node_modules/.package-lock.json" ] || [ "$web/package-lock.json" -nt "$web/node_modules/.package-lock.json" ]; then
  (cd "$web" && npm ci --no-audit --no-fund --loglevel=error)
fi

jobs=$(nproc 2>/dev/null || echo 2)
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j "$jobs"

case "$job" in
  studio) shift || true; exec "$build/src/quillet" studio "${@:-sample/Invoicing}" ;;
  demo)  exec "$build/src/quillet" script demo/demo.json ;;
  test)  cd "$build" && exec ctest --output-on-failure -j "$jobs" ;;
  bench) exec "$build/bench/quillet_bench" ;;
  build) ;;
  *) echo "usage: ./dev.sh studio [FOLDER] [--port N]|demo|test|bench|build" >&2; exit 2 ;;
esac
