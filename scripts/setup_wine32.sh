#!/usr/bin/env bash
# Unpacks a 32-bit Wine into a folder of its own, for scripts/wine.sh: the machine's architectures and package database
# stay as they are, and neither root nor a chroot is needed. Takes the 32-bit packages of this Debian release from the
# machine's own package sources, once: 0.7 GB in $OVALINE_WINE32, by default ovaline/wine32 in the user's cache folder.
# Says on standard error why it can't be done.
set -euo pipefail

home=${OVALINE_WINE32:-${XDG_CACHE_HOME:-$HOME/.cache}/ovaline/wine32}
packages=(wine32 libwine)
# The package tools need the system folders, which an ordinary user's path may lack.
PATH=$PATH:/usr/sbin:/sbin

fail() {
    echo "setup_wine32: $*" >&2
    exit 1
}

for tool in apt-get dpkg-deb patchelf; do
    command -v "$tool" >/dev/null || fail "$tool is missing, run scripts/setup.sh windows"
done
release=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
[ -n "$release" ] || fail "this is no Debian release"
mkdir -p "$home"
home=$(cd "$home" && pwd -P)

# Two runs at once would unpack into each other.
exec 9>"$home/.lock"
flock 9
done_mark=$home/.done
# Its programs know the folder by name.
wanted="$release ${packages[*]} $home"
[ "$(cat "$done_mark" 2>/dev/null)" = "$wanted" ] && exit 0
rm -f "$done_mark"

# Package sources, lists and settings of our own, so that nothing of the machine's is read or changed but the mirrors.
apt=$home/.apt
mkdir -p "$apt/state/lists/partial" "$apt/cache/archives/partial" "$apt/log" "$apt/empty"
: >"$apt/status"
distribution=$(sed -n 's/^ID=//p' /etc/os-release)
keyring=/usr/share/keyrings/$distribution-archive-keyring.gpg
options="arch=i386"
[ ! -r "$keyring" ] || options+=" signed-by=$keyring"
apt-get indextargets --format '$(CODENAME) $(COMPONENT) $(REPO_URI)' 'Identifier: Packages' |
    awk -v release="$release" -v options="$options" \
        '$1 == release && $2 == "main" && !seen[$3]++ { print "deb [" options "] " $3 " " release " main" }' \
        >"$apt/sources.list"
[ -s "$apt/sources.list" ] || fail "the machine has no package source for $release"
cat >"$apt/apt.conf" <<END
#clear APT::Architectures;
#clear APT::Update::Post-Invoke;
#clear APT::Update::Post-Invoke-Success;
#clear DPkg::Post-Invoke;
#clear DPkg::Pre-Install-Pkgs;
APT::Architecture "i386";
APT::Architectures { "i386"; };
APT::Install-Recommends "false";
APT::Sandbox::User "root";
Acquire::Retries "3";
Acquire::Languages "none";
Dir::State "$apt/state";
Dir::State::lists "$apt/state/lists";
Dir::State::status "$apt/status";
Dir::Cache "$apt/cache";
Dir::Cache::archives "$apt/cache/archives";
Dir::Log "$apt/log";
Dir::Etc::sourcelist "$apt/sources.list";
Dir::Etc::sourceparts "$apt/empty";
Dir::Etc::preferences "$apt/empty/none";
Dir::Etc::preferencesparts "$apt/empty";
END
echo "setup_wine32: downloading the 32-bit Wine into $home" >&2
apt-get -qq -c "$apt/apt.conf" update >&2 || fail "the package lists can't be downloaded"
apt-get -qq -y -c "$apt/apt.conf" --download-only --no-install-recommends install "${packages[@]}" >&2 ||
    fail "the packages can't be downloaded"
for package in "$apt"/cache/archives/*.deb; do
    [ -r "$package" ] || fail "the download left no packages"
    dpkg-deb -x "$package" "$home" || fail "$package can't be unpacked"
done
rm -rf "$apt"

# Links to absolute places lead to the machine's own files; those of the tree are meant.
find "$home" -type l -lname '/*' | while read -r link; do
    target=$(readlink "$link")
    [ ! -e "$home$target" ] || ln -sfn "$(realpath --relative-to="$(dirname "$link")" "$home$target")" "$link"
done
# The package's set-up would mark this library as one of Wine's own; Wine loads no other.
zlib=$home/usr/i686-w64-mingw32/lib/zlib1.dll
if [ -r "$zlib" ]; then
    { head -c 64 "$zlib" && printf 'Wine builtin DLL' && head -c 16 /dev/zero && tail -c +97 "$zlib"; } \
        >"$home/usr/lib/i386-linux-gnu/wine/i386-windows/zlib1.dll"
fi
# The programs start with the tree's own loader of shared libraries, since the machine may have none for 32 bits.
loader=$(find "$home/lib" "$home/usr/lib" -name ld-linux.so.2 2>/dev/null | head -n 1)
[ -n "$loader" ] || fail "the packages hold no loader"
for program in wine wineserver32; do
    patchelf --set-interpreter "$loader" "$home/usr/lib/wine/$program" || fail "$program can't be adapted"
done
printf '%s' "$wanted" >"$done_mark"
