# shellcheck shell=bash
# Sourced: a private Windows session for one runner: a virtual screen, a Wine
# prefix copied from a template, and a Wine server of its own.
#
#   start_session NAME    sets DISPLAY and WINEPREFIX; ends with the shell
#   end_session           ends what start_session began

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
wine_home=$project/out/wine
screen=1600x768 # room for the softphone, Outlook and Notes side by side

# A 32-bit Windows, or with WINE_BITS=64 one that runs programs of both kinds.
export WINEARCH=win${WINE_BITS:-32}
template=$wine_home/template${WINE_BITS:-}

export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml="
export LC_ALL=C.UTF-8 TZ=${TZ:-UTC}

# One core for client, servers and the Wine server together: a call between
# processes then needs no wake-up of another core and takes a quarter of the time.
# Another one (WINE_CORE=1) for a second session at the same time.
pinned=(taskset -c "${WINE_CORE:-0}")

start_screen() {
    local ready
    ready=$(mktemp)
    # Without -noreset the screen begins anew whenever its last client leaves, and throws
    # out who is just coming: a look for the desktop ended the desktop that was starting.
    Xvfb -displayfd 3 -screen 0 ${screen}x24 -nolisten tcp -noreset 3> "$ready" > /dev/null 2>&1 &
    screen_pid=$!
    for _ in $(seq 100); do [ -s "$ready" ] && break; sleep 0.05; done
    DISPLAY=:$(cat "$ready")
    export DISPLAY
    rm -f "$ready"
    [ "$DISPLAY" != ":" ] || { echo "the virtual screen (Xvfb) does not start" >&2; return 1; }
}

stop_screen() {
    kill "$screen_pid" 2> /dev/null && wait "$screen_pid" 2> /dev/null
    return 0
}

# A prefix as every session starts with it. Made under another name first, so
# that an interrupted run leaves no half-made template behind.
make_template() {
    [ -d "$template" ] && return 0
    echo "making the Wine prefix (about ten seconds)"
    mkdir -p "$wine_home"
    local raw=$template.$$
    export WINEPREFIX=$raw
    wineboot -i > /dev/null 2>&1 < /dev/null
    ln -sf /usr/share/wine/fonts/*.ttf "$raw/drive_c/windows/Fonts/"
    local settings=$raw/settings.reg
    cat > "$settings" << REG
REGEDIT4

[HKEY_CURRENT_USER\Software\Wine\Explorer]
"Desktop"="shell"

[HKEY_CURRENT_USER\Software\Wine\Explorer\Desktops]
"shell"="$screen"

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\AeDebug]
"Auto"="0"
"Debugger"="false"
REG
    wine regedit /S "$settings" > /dev/null 2>&1 < /dev/null
    wineserver -k
    wineserver -w
    rm -f "$settings"
    mv "$raw" "$template"
}

start_session() {
    local name=$1
    start_screen || return 1
    make_template || return 1
    export WINEPREFIX=$wine_home/$name
    rm -rf "$WINEPREFIX"
    cp -a "$template" "$WINEPREFIX"
    "${pinned[@]}" wineserver -p > /dev/null 2>&1 < /dev/null
    # The desktop with its notification area, there before the first program.
    "${pinned[@]}" wine explorer.exe /desktop=shell,$screen > /dev/null 2>&1 < /dev/null &
    for _ in $(seq 600); do
        xwininfo -root -tree 2> /dev/null | grep '"shell - Wine desktop"' > /dev/null && return
        sleep 0.05
    done
    echo "the Windows desktop does not come up" >&2
    return 1
}

end_session() {
    wineserver -k 2> /dev/null
    wineserver -w 2> /dev/null
    stop_screen
}
