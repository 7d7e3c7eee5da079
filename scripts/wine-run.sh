#!/usr/bin/env bash
# Runs a Windows program in the current session. Its output goes through a
# file: background processes that it starts would keep the caller's pipe open,
# and the caller would wait for them for ever. For tests: when the program ends with anything
# but 0, the programs of the desk are ended too.
output=$(mktemp)
trap 'rm -f "$output"' EXIT
taskset -c "${WINE_CORE:-0}" wine "$@" > "$output" 2>&1 < /dev/null
result=$?
cat "$output"

# A test that breaks off cannot end what it has started, and the next one would
# meet it. The service that hands out the classes still knows the dead.
[ "$result" = 0 ] || wine taskkill /F /IM hublink.exe /IM OUTLOOK.exe /IM nlnotes.exe /IM pavex.exe \
    /IM PavexConvId.exe /IM rpcss.exe > /dev/null 2>&1 < /dev/null
exit $result
