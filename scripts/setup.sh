#!/usr/bin/env bash
# Installs what the build, the desk and the tests need on a bare Debian 12. Quick and
# silent when everything is there already.
#   scripts/setup.sh          the compiler, the packager, Wine and a virtual screen
#   scripts/setup.sh check    the tools of ./check as well
#   scripts/setup.sh 64       what ./test --64 takes as well
set -euo pipefail

packages=(
    g++-mingw-w64-i686-win32 mingw-w64-tools cmake ninja-build googletest
    wine wine32:i386 fonts-wine fonts-liberation
    wixl msitools osslsigncode openssl python3
    xvfb xauth x11-utils xdotool imagemagick procps util-linux
)
what="the compiler, the packager, Wine and a virtual screen (about a minute, 300 MB)"
case "${1:-}" in
    check)
        # Of one version, for another one lays out otherwise.
        packages+=(clang-format-19 clang-tidy-19 shellcheck)
        what="what ./check takes (up to two minutes, 400 MB)"
        ;;
    64)
        packages+=(g++-mingw-w64-x86-64-win32 wine64)
        what="what ./test --64 takes (up to two minutes, 700 MB)"
        ;;
esac

say()  { printf 'set-up: %s\n' "$*"; }
fail() { printf 'set-up: %s\n' "$*" >&2; exit 1; }

all_installed() {
    local wanted installed
    wanted=${#packages[@]}
    installed=$(dpkg-query -W -f '${db:Status-Status}\n' "${packages[@]}" 2>/dev/null |
        grep -c '^installed$' || true)
    [ "$installed" -eq "$wanted" ]
}

install_plainly() {
    apt-get update -qq && apt-get install "${install_options[@]}" "${packages[@]}"
}

# The mirror that this machine already uses for its main archive.
main_archive() {
    # shellcheck disable=SC2016 # apt-get itself puts the values in
    apt-get indextargets --format '$(REPO_URI) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' |
        awk '$2 == "bookworm" && $3 == "main" && !uri { uri = $1 } END { print uri }'
}

# The security suite's i386 index is at times out of step with its amd64 one.
# Its amd64 updates then leave the i386 libraries without an installable twin,
# so the whole set is taken from the main archive alone, downgrading the few
# shared libraries that have to be of one version on both architectures.
install_from_main_archive_only() {
    local lists uri
    uri=$(main_archive)
    [ -n "$uri" ] || fail "the apt configuration names no mirror of bookworm/main"
    lists=$(mktemp -d)
    chmod 755 "$lists"
    mkdir -p "$lists/state" "$lists/parts"
    printf 'deb %s %s main\n' "$uri" bookworm "$uri" bookworm-updates > "$lists/sources.list"
    printf 'Package: *\nPin: release o=Debian\nPin-Priority: 1001\n' > "$lists/preferences"
    local only=(
        -o "Dir::Etc::sourcelist=$lists/sources.list"
        -o "Dir::Etc::sourceparts=$lists/parts"
        -o "Dir::Etc::preferences=$lists/preferences"
        -o "Dir::Etc::preferencesparts=$lists/parts"
        -o "Dir::State::Lists=$lists/state"
        -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache=
    )
    apt-get "${only[@]}" update -qq &&
        apt-get "${only[@]}" install --allow-downgrades "${install_options[@]}" "${packages[@]}"
    local result=$?
    rm -rf "$lists"
    return $result
}

all_installed && exit 0
[ "$(id -u)" -eq 0 ] || fail "packages are missing and only root can install them: run this as root"
command -v apt-get > /dev/null || fail "apt-get is missing: this set-up is for Debian 12"

export DEBIAN_FRONTEND=noninteractive
install_options=(-y -qq --no-install-recommends -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=120)
log=$(mktemp)
say "installing $what"
dpkg --add-architecture i386
if ! install_plainly > "$log" 2>&1; then
    say "the archive's suites are out of step; taking everything from its main suite"
    install_from_main_archive_only >> "$log" 2>&1 || {
        tail -n 15 "$log" >&2
        fail "packages could not be installed; the whole log is $log"
    }
fi
rm -f "$log"
all_installed || fail "packages are still missing after the installation: ${packages[*]}"
say "done"
