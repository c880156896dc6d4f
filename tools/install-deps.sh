#!/usr/bin/env bash
# Installs, from Debian's packages, whatever the build, the tests, the tools and
# the fuzz targets need and this machine lacks. Does nothing when all is there;
# needs root only when something is missing.
set -euo pipefail

need=()
command -v cmake >/dev/null || need+=(cmake)
command -v ninja >/dev/null || need+=(ninja-build)
command -v g++ >/dev/null || need+=(g++)
[ -f /usr/include/gtest/gtest.h ] || need+=(libgtest-dev googletest)
[ -f /usr/include/benchmark/benchmark.h ] || need+=(libbenchmark-dev)
# Test-only: QuantLib is the independent reference for the option prices.
[ -f /usr/include/ql/quantlib.hpp ] || need+=(libquantlib0-dev)
# The reference host: SQLite audit trail, OpenSSL for the users' secret hashes,
# and the sqlite3 shell that prints the audit trail in the main job.
[ -f /usr/include/sqlite3.h ] || need+=(libsqlite3-dev)
[ -f /usr/include/openssl/evp.h ] || need+=(libssl-dev)
command -v sqlite3 >/dev/null || need+=(sqlite3)
# zentdl, the administrator's tool: CLI11 for its arguments, nlohmann-json for JSON.
[ -f /usr/include/CLI/CLI.hpp ] || need+=(libcli11-dev)
[ -f /usr/include/nlohmann/json.hpp ] || need+=(nlohmann-json3-dev)
# The fuzz targets: clang with its libFuzzer and sanitizer runtimes.
command -v clang++ >/dev/null || need+=(clang)
compgen -G "/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-x86_64.a" >/dev/null || need+=(libclang-rt-14-dev)

if [ ${#need[@]} -gt 0 ]; then
  if [ "$(id -u)" = 0 ]; then
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${need[@]}"
  else
    echo "missing packages: ${need[*]} (run as root to install them)" >&2
    exit 1
  fi
fi
