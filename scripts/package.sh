#!/usr/bin/env bash
# Makes the packages for Linux, out/packages/*.tar.gz and *.deb, installs each into an empty folder and uses it there: the
# program marks, and a C++ host that knows the package alone is built and runs.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/checks.sh
packages=$PWD/out/packages
rm -rf "$packages"
mkdir -p "$packages"
(cd ${OVALINE_BUILD:-build} && cpack -B "$packages" >/dev/null)
rm -rf "$packages/_CPack_Packages"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
tar -xzf "$packages"/*.tar.gz -C "$work" --one-top-level=tgz --strip-components=1
dpkg-deb -x "$packages"/*.deb "$work/deb"

marks() {
    OVALINE_REGISTRY=$work/registry.reg "$1/bin/ovaline" mark --text PACKAGE --set FontStyle=SingleStroke -o "$work/mark.svg" &&
        grep -q '<path' "$work/mark.svg" && rm "$work/mark.svg" "$work/registry.reg"
}
hosts() {
    rm -rf "$work/consumer"
    cmake -S tests/package/consumer -B "$work/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$1" &&
        cmake --build "$work/consumer" && "$work/consumer/consumer"
}
# A package that depends on nothing would not start on a machine that has nothing.
depends() {
    dpkg-deb -f "$packages"/*.deb Depends | grep -q libcairo2
}
for root in "$work/tgz" "$work/deb/usr"; do
    name=$(basename "${root%/usr}")
    check "$name: the program" marks "$root"
    check "$name: a C++ host" hosts "$root"
done
check "deb: its dependencies" depends
ls -l "$packages" | awk 'NR > 1 {print $5, $9}'
tellChecks
