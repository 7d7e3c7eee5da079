#!/usr/bin/env bash
# Builds everything and puts the installable files into dist/hublink/.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { printf 'build: %s\n' "$*" >&2; exit 1; }

mkdir -p out
log=out/build.log
echo "building (out/build.log)"
{ cmake --preset windows && cmake --build --preset windows; } > "$log" 2>&1 ||
    { grep -E 'error|Error|FAILED' "$log" | head -n 20 >&2; fail "it does not build; the whole log is $log"; }
rm -rf dist/hublink
cmake --install build --prefix dist/hublink >> "$log" 2>&1 || fail "dist/hublink cannot be written; see $log"
