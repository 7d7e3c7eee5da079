#!/usr/bin/env bash
# Builds and puts what is installed into dist/hublink/, and beside it as a package for
# Windows Installer and as a zip.
#   scripts/build.sh              everything
#   scripts/build.sh PROGRAM      a program and all that it starts: player, bench, deaths, hang_tests
#   scripts/build.sh --64         everything for 64-bit Windows, in out/windows64; dist/ stays as it is
#   scripts/build.sh --sanitize   everything with undefined behaviour trapped, in out/sanitize; dist/ stays as it is
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { printf 'build: %s\n' "$*" >&2; exit 1; }

# Whoever compiles with ccache has the tests' precompiled header cached too.
export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS:-pch_defines,time_macros,include_file_mtime,include_file_ctime}

build() {
    local preset=$1
    shift
    echo "building ($log)"
    { cmake --preset "$preset" && cmake --build --preset "$preset" "$@"; } > "$log" 2>&1 ||
        { grep -E 'error: |CMake Error|FAILED' "$log" | head -n 20 >&2; fail "it does not build; the whole log is $log"; }
}

mkdir -p out
log=out/build.log
case "${1:-}" in
    --64) log=out/build64.log && build windows64 && exit ;;
    --sanitize) log=out/build-sanitize.log && build sanitize && exit ;;
    "") build windows ;;
    *) build windows --target "$1" packages ;;
esac
rm -rf dist/hublink dist/hublink-*
{ cmake --install build --prefix dist/hublink && cmake --install build --component packages --prefix dist; } \
    >> "$log" 2>&1 || fail "dist cannot be written; see $log"
