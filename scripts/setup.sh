#!/usr/bin/env bash
# Installs the Debian packages that the build, the tests and the benchmarks need, as root or by sudo. With "windows" also
# the cross compilers and what runs their programs, with "screenshots" what takes pictures of those, with "tidy" the
# static analyser, with "package" what packs. Does nothing where they are all there.
set -euo pipefail

packages=(
    g++ cmake ninja-build pkg-config clang-format
    libfreetype-dev libfontconfig-dev libcairo2-dev libcli11-dev nlohmann-json3-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    fonts-liberation fonts-dejavu-core
    python3 python3-fonttools python3-numpy python3-pil python3-shapely
    librsvg2-bin
)
if [ "${1:-}" = windows ]; then
    packages+=(
        g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix mingw-w64-tools googletest
        wine64 fonts-wine patchelf
    )
fi
if [ "${1:-}" = screenshots ]; then
    packages+=(xvfb imagemagick fonts-wqy-microhei)
fi
if [ "${1:-}" = tidy ]; then
    packages+=(clang-tidy)
fi

if [ "${1:-}" = package ]; then
    packages+=(dpkg-dev file zip)
fi

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
        echo "setup: these packages are missing, and neither root nor sudo is there to install them: ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
fi
echo "setup: installing ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
