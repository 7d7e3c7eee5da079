#!/usr/bin/env bash
# Runs a Windows program in a Wine session that is its own: what is installed there
# meets nothing that other tests have left, and leaves them nothing.
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)

case " $* " in *" --gtest_list_tests "*) exec "$root/scripts/wine-run.sh" "$@" ;; esac

. "$root/scripts/wine-session.sh"
trap 'end_session; rm -rf "$WINEPREFIX"' EXIT
start_session "installer$$" || exit 1
"$root/scripts/wine-run.sh" "$@"
