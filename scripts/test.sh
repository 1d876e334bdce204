#!/usr/bin/env bash
# Runs every test of a build folder (OVALINE_BUILD, "build" by default) and closes with the counts.
set -uo pipefail
cd "$(dirname "$0")/.."
build=${OVALINE_BUILD:-build}
log=$build/test.log

ctest --test-dir "$build" --output-on-failure --no-tests=error -j "$(nproc)" 2>&1 | tee "$log" | grep -vE '^ *(Start|[0-9]+/[0-9]+ Test).*(Start|Passed)|^ +Start '
status=${PIPESTATUS[0]}

total=$(sed -n 's/.* tests failed out of \([0-9]*\)$/\1/p' "$log")
failed=$(sed -n 's/.*tests passed, \([0-9]*\) tests failed out of .*/\1/p' "$log")
if [ -z "$total" ] || [ -z "$failed" ]; then
    echo "test: the test run did not finish" >&2
    exit 1
fi
echo "$((total - failed)) passed, $failed failed"
exit "$status"
