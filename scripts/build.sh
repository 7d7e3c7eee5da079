#!/usr/bin/env bash
# Builds and puts what is installed into dist/hublink/, and beside it as a package for
# Windows Installer and as a zip.
#   scripts/build.sh              everything
#   scripts/build.sh PROGRAM      a program and all that it starts: player, bench, deaths, hang_tests
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { printf 'build: %s\n' "$*" >&2; exit 1; }

# Whoever compiles with ccache has the tests' precompiled header cached too.
export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS:-pch_defines,time_macros,include_file_mtime,include_file_ctime}

mkdir -p out
log=out/build.log
echo "building (out/build.log)"
{ cmake --preset windows && cmake --build --preset windows ${1:+--target "$1" packages}; } > "$log" 2>&1 ||
    { grep -E 'error|Error|FAILED' "$log" | head -n 20 >&2; fail "it does not build; the whole log is $log"; }
rm -rf dist/hublink dist/hublink-*
{ cmake --install build --prefix dist/hublink && cmake --install build --component packages --prefix dist; } \
    >> "$log" 2>&1 || fail "dist cannot be written; see $log"
