#!/usr/bin/env bash
# Makes the package of a later version: another hublink.exe, another default ini file.
#   make_next_version.sh FOLDER HUBLINK SETUP_DLL VERSION PACKAGE
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$1/." "$folder"
cp "$2" "$folder/hublink.exe"
printf '\r\n; of the later version\r\n' >> "$folder/pavexconnector.ini"
"$root/packaging/make-package.sh" "$folder" "$3" "$4" "$5"
