#!/usr/bin/env bash
# Sets up a Debian machine for Quillet, builds it, and runs the main job or the tests.
#   ./dev.sh demo    the main job: the bundled demo on the sample project
#   ./dev.sh test    every test: unit tests, scenarios
#   ./dev.sh bench   the benchmarks
#   ./dev.sh build   just build
set -euo pipefail
cd "$(dirname "$0")"
job=${1:-demo}
build=${QUILLET_BUILD:-build}

packages=(g++ cmake ninja-build libgtest-dev libgmock-dev nlohmann-json3-dev libcpp-httplib-dev chromium)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" -ne 0 ]; then echo "dev.sh: missing packages ${missing[*]}; run as root" >&2; exit 1; fi
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

jobs=$(nproc 2>/dev/null || echo 2)
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j "$jobs"

case "$job" in
  demo)  exec "$build/src/quillet" script demo/demo.json ;;
  test)  cd "$build" && exec ctest --output-on-failure -j "$jobs" ;;
  bench) exec "$build/bench/quillet_bench" ;;
  build) ;;
  *) echo "usage: ./dev.sh demo|test|bench|build" >&2; exit 2 ;;
esac
