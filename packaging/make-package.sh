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

# Property and kind of each setting that may be given, from the rows {"section", "key", kind, "fallback", L"PROPERTY"}.
properties=$(awk -F '"' '/^    [{]"/ && NF == 9 { gsub(/.*::|, $/, "", $5); print $8, $5 }' \
    "$here/../src/common/settings_table.h")
names=$(awk '{ printf "%s%s", separator, $1; separator = ";" }' <<< "$properties")
[ -n "$names" ] || { echo "the table of the settings cannot be read" >&2; exit 1; }

# Refuses a value that the program would take for something else.
conditions() {
    awk '
        function refuse(condition, message) {
            printf "INSERT INTO `LaunchCondition` (`Condition`, `Description`) VALUES "
            printf "(\047NOT %s OR %s\047, \047%s %s, not \"[%s]\".\047)\n", $1, condition, $1, message, $1
        }
        function oneOf(values, count, text, number) {
            for (number = 1; number <= count; number++)
                text = text (number > 1 ? " OR " : "") $1 "=\"" values[number] "\""
            return text
        }
        $2 == "toggle" { n = split("true false", v); refuse(oneOf(v, n), "is true or false") }
        $2 == "number" || $2 == "pause" { refuse("(" $1 " >= 0 AND " $1 " <= 32767)", "is a number, 0 to 32767") }
        $2 == "groupwares" {
            n = split("OUTLOOK LOTUS OUTLOOK,LOTUS LOTUS,OUTLOOK", v)
            refuse(oneOf(v, n), "is OUTLOOK, LOTUS or OUTLOOK,LOTUS")
        }' <<< "$properties"
}

tables() { sed "s/@VERSION@/$version/g; s/@PROPERTIES@/$names/; /^--/d; /^\$/d" "$here/package-tables.sql"; }

{ tables && conditions; } | while IFS= read -r statement; do
    msibuild hublink.msi -q "$statement" || { echo "refused: $statement" >&2; exit 1; }
done
mkdir -p "$(dirname "$package")"
mv hublink.msi "$package"
