#!/usr/bin/env bash
# Builds for Windows, 32 and 64 bits, and runs the tests of both builds in Wine. Closes with the counts. What can't be
# set up here, without a network or on a kernel without 32-bit programs, is said in a line and not counted.
set -uo pipefail
cd "$(dirname "$0")/.."
passed=0
failed=0
status=0

untested() {
    echo "test-windows: the $1-bit Windows build is NOT TESTED here: $2"
}

# Builds and tests one half.
test_half() {
    local bits=$1 name=$2 reason counts
    if [ "$bits" = 32 ] && ! reason=$(scripts/setup_wine32.sh 2>&1); then
        untested 32 "$(tail -n 1 <<<"$reason")"
        return
    fi
    if ! scripts/wine.sh "$bits" cmd /c exit >/dev/null 2>&1; then
        untested "$bits" "Wine runs no $bits-bit program on this machine"
        return
    fi
    cmake --preset "$name" >/dev/null && cmake --build --preset "$name" || {
        echo "test-windows: the $bits-bit build failed" >&2
        status=1
        return
    }
    OVALINE_BUILD=build-$name scripts/test.sh | sed -E "s/^([0-9]+ passed, [0-9]+ failed)$/$bits-bit Windows: \1/"
    [ "${PIPESTATUS[0]}" -eq 0 ] || status=1
    counts=$(sed -n 's/^.*% tests passed, \([0-9]*\) tests failed out of \([0-9]*\)$/\1 \2/p' "build-$name/test.log")
    [ -n "$counts" ] || return
    failed=$((failed + ${counts% *}))
    passed=$((passed + ${counts#* } - ${counts% *}))
}

if scripts/setup.sh windows; then
    test_half 32 windows-i686
    test_half 64 windows-x86_64
else
    untested "32- and 64" "the packages can't be installed"
fi
echo "$passed passed, $failed failed"
exit "$status"
