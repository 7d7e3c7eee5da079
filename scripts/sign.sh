#!/usr/bin/env bash
# Signs what the build has left in dist/: the programs, the package around them and the
# zip made anew from them. The key is that of whoever builds; it is not kept anywhere.
#   scripts/sign.sh --certificate PEM --key PEM [--password-file FILE] [--timestamp URL]
#                   [--authority PEM] [--folder DIST]
# --certificate   the certificate, with those between it and its authority
# --timestamp     a timestamp server's address: signatures outlive the certificate
# --authority     what the signatures are verified against afterwards; without it the certificate itself
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { printf 'sign: %s\n' "$*" >&2; exit 1; }

certificate='' key='' password='' timestamp='' authority='' dist=dist
while [ $# -gt 0 ]; do
    [ $# -ge 2 ] || fail "$1 has no value"
    case "$1" in
        --certificate) certificate=$2 ;;
        --key) key=$2 ;;
        --password-file) password=$2 ;;
        --timestamp) timestamp=$2 ;;
        --authority) authority=$2 ;;
        --folder) dist=$2 ;;
        *) fail "unknown option $1" ;;
    esac
    shift 2
done
if [ -z "$certificate" ] || [ -z "$key" ]; then
    fail "a certificate and a key are needed (see the head of scripts/sign.sh)"
fi
command -v osslsigncode > /dev/null || fail "osslsigncode is missing: apt-get install osslsigncode"

msi=$(find "$dist" -maxdepth 1 -name 'hublink-*.msi')
[ -f "$msi" ] || fail "there is no package in $dist: build first"
name=$(basename "$msi" .msi)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

sign() {
    local options=(-certs "$certificate" -key "$key" -h sha256 -n Hublink)
    [ -z "$password" ] || options+=(-readpass "$password")
    [ -z "$timestamp" ] || options+=(-ts "$timestamp")
    osslsigncode sign "${options[@]}" -in "$1" -out "$1.signed" > "$work/log" 2>&1 ||
        { cat "$work/log" >&2; fail "$(basename "$1") could not be signed"; }
    mv "$1.signed" "$1"
    osslsigncode verify -CAfile "${authority:-$certificate}" -in "$1" > "$work/log" 2>&1 ||
        { cat "$work/log" >&2; fail "the signature of $(basename "$1") does not hold"; }
    echo "signed: $(basename "$1")"
}

cp -r "$dist/hublink" "$work/$name"
cp build/bin/hublink_setup.dll "$work"
for program in "$work/$name"/*.exe "$work/hublink_setup.dll"; do sign "$program"; done
packaging/make-package.sh "$work/$name" "$work/hublink_setup.dll" "${name#hublink-}" "$work/$name.msi"
sign "$work/$name.msi"
(cd "$work" && cmake -E tar cf "$name.zip" --format=zip "$name")

# Everything is signed: only now what was there is replaced.
cp "$work/$name"/*.exe "$dist/hublink/"
cp "$work/$name.msi" "$work/$name.zip" "$dist/"
