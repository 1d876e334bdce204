#!/usr/bin/env bash
# Pictures of the property pages in the system's own frame, in each language of the host, as
# out/windows/LANGUAGE-PAGE.png. Shows the 32-bit build in Wine on a screen in memory. Needs that build's prerequisites,
# and the packages xvfb, imagemagick and fonts-wqy-microhei.
set -euo pipefail
cd "$(dirname "$0")/../.."
build=$(realpath "${OVALINE_BUILD:-build-windows-i686}")
asian=/usr/share/fonts/truetype/wqy/wqy-microhei.ttc
for needed in "$(command -v Xvfb || echo Xvfb)" "$(command -v import || echo import)" "$asian"; do
    [ -e "$needed" ] || {
        echo "screenshots: $needed is missing" >&2
        exit 2
    }
done
cmake --build "$build" --target property_frame
pictures=$PWD/out/windows
mkdir -p "$pictures"
rm -f "$pictures"/*.png

# A prefix of its own, for the tests' one has neither a screen nor fonts other than theirs.
export WINEPREFIX=$build/wine-screen
exec 3< <(exec Xvfb -displayfd 1 -screen 0 640x640x24 2>/dev/null)
screen=$!
trap 'scripts/wine.sh 32 wineboot --kill >/dev/null 2>&1 || true; kill "$screen"' EXIT
read -r -t 20 number <&3
export OVALINE_WINE_SCREEN=:$number DISPLAY=:$number
scripts/wine.sh 32
# Windows itself takes characters that the dialogs' font lacks from others.
if [ ! -e "$WINEPREFIX/drive_c/windows/Fonts/${asian##*/}" ]; then
    cp "$asian" "$WINEPREFIX/drive_c/windows/Fonts"
    for font in Tahoma "MS Shell Dlg" "Liberation Sans"; do
        scripts/wine.sh 32 reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink' \
            /v "$font" /t REG_MULTI_SZ /d "${asian##*/},WenQuanYi Micro Hei" /f >/dev/null
    done
fi

wine=$PWD/scripts/wine.sh
coproc frame { cd "$build" && exec "$wine" 32 tests/property_frame.exe Norvel_Ovaline.dll; }
program=$frame_PID
while read -r -t 60 language page <&"${frame[0]}"; do
    page=${page%$'\r'}
    sleep 1 # until what changed is painted
    import -window root "$pictures/$language-$page.png"
    echo >&"${frame[1]}"
done
wait "$program"
echo "Written: $(find "$pictures" -name '*.png' | wc -l) pictures in out/windows"
