#!/usr/bin/env bash
# Makes the package that Windows Installer installs.
#   make-package.sh FOLDER SETUP_DLL VERSION PACKAGE
# FOLDER holds what is installed, as dist/hublink/ does; SETUP_DLL are the custom actions.
set -euo pipefail

[ $# -eq 4 ] || { echo "usage: make-package.sh FOLDER SETUP_DLL VERSION PACKAGE" >&2; exit 2; }
here=$(cd "$(dirname "$0")" && pwd)
folder=$(realpath "$1") setup=$(realpath "$2") version=$3 package=$(realpath -m "$4")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# wixl takes sources below the current folder only.
cp -r "$folder/." "$work"
cp "$setup" "$work/hublink_setup.dll"
cp "$here/../src/shell/hublink.ico" "$here/hublink.wxs" "$work"
cd "$work"
wixl -D Version="$version" -o hublink.msi hublink.wxs 2> wixl.log || { cat wixl.log >&2; exit 1; }

sed "s/@VERSION@/$version/g; /^--/d; /^\$/d" "$here/package-tables.sql" | while IFS= read -r statement; do
    msibuild hublink.msi -q "$statement" || { echo "refused: $statement" >&2; exit 1; }
done
mkdir -p "$(dirname "$package")"
mv hublink.msi "$package"
