#!/usr/bin/env bash
# Runs a Windows program in the current session. Its output goes through a
# file: background processes that it starts would keep the caller's pipe open,
# and the caller would wait for them for ever.
output=$(mktemp)
trap 'rm -f "$output"' EXIT
taskset -c "${WINE_CORE:-0}" wine "$@" > "$output" 2>&1 < /dev/null
result=$?
cat "$output"
exit $result
