#!/usr/bin/env bash
# Runs a Windows program in Wine: wine.sh BITS PROGRAM [ARGUMENT...], with BITS 32 or 64. "wine.sh BITS" alone only makes
# things ready. Needs no screen; with a prefix made for it, windows show on the one that $OVALINE_WINE_SCREEN names. The
# 32-bit Wine is that of scripts/setup_wine32.sh, the 64-bit one the machine's.
#
# $WINEPREFIX is the folder that programs see as their C: drive and registry, by default one in the build folder. It is
# made at first use, with the machine's Liberation and DejaVu fonts and no others, so that results are the same
# everywhere.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd -P)
bits=$1
shift

case $bits in
32)
    home=${OVALINE_WINE32:-${XDG_CACHE_HOME:-$HOME/.cache}/ovaline/wine32}
    libraries=$home/lib/i386-linux-gnu:$home/usr/lib/i386-linux-gnu:$home/usr/lib/i386-linux-gnu/pulseaudio
    export LD_LIBRARY_PATH=$libraries${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}
    export WINELOADER=$home/usr/lib/wine/wine WINESERVER=$home/usr/lib/wine/wineserver32 WINEARCH=win32
    export WINEPREFIX=${WINEPREFIX:-$root/build-windows-i686/wine}
    ;;
64)
    export WINELOADER=/usr/lib/wine/wine64 WINESERVER=/usr/lib/wine/wineserver64 WINEARCH=win64
    export WINEPREFIX=${WINEPREFIX:-$root/build-windows-x86_64/wine}
    ;;
*)
    echo "wine.sh: 32 or 64 bits, not $bits" >&2
    exit 2
    ;;
esac
[ -x "$WINELOADER" ] || {
    echo "wine.sh: there is no $bits-bit Wine here" >&2
    exit 2
}
export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=} LC_ALL=C.UTF-8
unset WINEDLLPATH DISPLAY WAYLAND_DISPLAY
[ -z "${OVALINE_WINE_SCREEN:-}" ] || export DISPLAY=$OVALINE_WINE_SCREEN

mkdir -p "$WINEPREFIX"
# Without this file Wine would also use the machine's fonts.
export FONTCONFIG_FILE=$WINEPREFIX/no-fonts.conf
if [ ! -e "$WINEPREFIX/.ready" ]; then
    # One caller makes the folder, the others wait for it.
    exec 9>"$WINEPREFIX/.lock"
    flock 9
    if [ ! -e "$WINEPREFIX/.ready" ]; then
        echo '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig/>' >"$FONTCONFIG_FILE"
        "$WINELOADER" wineboot -i >/dev/null 2>&1 9>&-
        "$WINESERVER" -w 9>&-
        # This driver draws in memory.
        [ -n "${DISPLAY:-}" ] ||
            "$WINELOADER" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1 9>&-
        "$WINESERVER" -w 9>&-
        cp /usr/share/fonts/truetype/{liberation,dejavu}/*.ttf /usr/share/wine/fonts/*.ttf \
            "$WINEPREFIX/drive_c/windows/Fonts"
        : >"$WINEPREFIX/.ready"
    fi
    exec 9>&-
fi
# Wine's background processes keep the output of whoever starts them open, and a reader would wait for their end. They
# are started here, away from it, and stay for a minute after the last program.
if "$WINESERVER" -p60 </dev/null >/dev/null 2>&1; then
    "$WINELOADER" cmd /c exit </dev/null >/dev/null 2>&1 || true
fi
[ $# -eq 0 ] || exec "$WINELOADER" "$@"
