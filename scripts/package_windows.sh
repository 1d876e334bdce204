#!/usr/bin/env bash
# Makes the package for Windows, out/packages/*-windows.zip, of both Windows builds. Unpacks it into an empty folder and,
# where a 32-bit Wine can be had, uses it there: the program marks, the scripts register and unregister, a script host
# finds the control.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/checks.sh
version=$(sed -n 's/^project(Ovaline VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=ovaline-$version-windows
packages=$PWD/out/packages
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$packages" "$work/$name"/{fonts,x64/fonts}
rm -f "$packages/$name.zip"

fill() {
    cp "$1/Norvel_Ovaline.dll" "$1/ovaline.exe" "$2"
    cp fonts/FilamentSanSerif.ttf "$2/fonts"
}
fill build-windows-i686 "$work/$name"
fill build-windows-x86_64 "$work/$name/x64"
for text in packaging/windows/* docs/ovaline.md docs/formats.md; do
    sed 's/$/\r/' "$text" >"$work/$name/$(basename "$text")"
done
cp packaging/windows/*register.cmd "$work/$name/x64"
sed -i 's/$/\r/' "$work/$name/x64/"*.cmd
(cd "$work" && zip -qr "$packages/$name.zip" "$name" && rm -r "$name")
ls -l "$packages/$name.zip" | awk '{print $5, $9}'

if ! reason=$(scripts/setup_wine32.sh 2>&1) || ! scripts/wine.sh 32 cmd /c exit >/dev/null 2>&1; then
    echo "package: the package for Windows is NOT TESTED here: $(tail -n 1 <<<"$reason")"
    exit 0
fi
(cd "$work" && python3 -m zipfile -e "$packages/$name.zip" .)
root=$PWD
cd "$work/$name"
run() { "$root/scripts/wine.sh" 32 "$@"; }
marks() { run ovaline.exe mark --text PACKAGE --set FontStyle=SingleStroke -o mark.svg && grep -q '<path' mark.svg; }
registers() {
    run cmd /c register.cmd /s &&
        run reg query 'HKCR\Norvel_Ovaline.Norvel_OvalineCtrl\CLSID' &&
        run cscript //nologo hello.vbs | tr -d '\r' | grep -q 'HELLO WORLD on 20 x 20 mm, data of up to [1-9]'
}
unregisters() {
    run cmd /c unregister.cmd /s && ! run reg query 'HKCR\Norvel_Ovaline.Norvel_OvalineCtrl'
}
check "zip: the program" marks
check "zip: registering" registers
check "zip: unregistering" unregisters
tellChecks
