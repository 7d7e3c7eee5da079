#!/usr/bin/env bash
# Signs a copy of the packages with a throw-away certificate, and looks whether the
# signatures hold, and no longer once a file was changed.
#   signing_test.sh PACKAGES
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
packages=$1

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "$*" >&2; exit 1; }

openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj "/CN=Throw-away" -addext extendedKeyUsage=codeSigning \
    -keyout "$work/key.pem" -out "$work/certificate.pem" 2> /dev/null

mkdir "$work/dist"
cp "$packages"/hublink-*.msi "$packages"/hublink-*.zip "$work/dist"
cp -r "$packages"/hublink-*/ "$work/dist/hublink"
before=$(cat "$work"/dist/hublink/*.exe | cksum)
"$root/scripts/sign.sh" --certificate "$work/certificate.pem" --key "$work/key.pem" --folder "$work/dist"
[ "$before" != "$(cat "$work"/dist/hublink/*.exe | cksum)" ] || fail "the programs are as before"

holds() { osslsigncode verify -CAfile "$work/certificate.pem" -in "$1" > /dev/null 2>&1; }
for file in "$work"/dist/hublink/*.exe "$work"/dist/hublink-*.msi; do
    holds "$file" || fail "the signature of $file does not hold"
done
(cd "$work" && cmake -E tar xf dist/hublink-*.zip)
cmp "$work"/hublink-*/hublink.exe "$work/dist/hublink/hublink.exe" || fail "the zip holds another program"

printf 'x' | dd of="$work/dist/hublink/hublink.exe" bs=1 seek=4096 conv=notrunc status=none
if holds "$work/dist/hublink/hublink.exe"; then fail "a changed program passes as signed"; fi

if "$root/scripts/sign.sh" --folder "$work/dist" 2> /dev/null; then fail "it signs without a key"; fi
echo "all signatures hold"
