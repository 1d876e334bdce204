# Sourced by scripts that try what they made: counts checks, shows what a failed one printed. $work is a folder to write in.
passed=0
failed=0
check() {
    local what=$1
    shift
    if "$@" >"$work/log" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "package: $what failed"
        cat "$work/log"
    fi
}
# The script's last command: its status is whether all passed.
tellChecks() {
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
}
