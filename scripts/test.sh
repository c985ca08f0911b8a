#!/usr/bin/env bash
# Everything that has to hold before a change goes in: the tests under the address, undefined behaviour and thread
# sanitizers, and then all tests on the optimised build, whose summary is the end of the output.
# Usage: scripts/test.sh [--quick]      (--quick leaves the sanitizers out)

set -euo pipefail
quick=no
case "${1:-}" in
    "") ;;
    --quick) quick=yes ;;
    *) echo "usage: scripts/test.sh [--quick]" >&2; exit 2 ;;
esac
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
ensure_packages "${buildPackages[@]}" "${runtimePackages[@]}" "${witnessPackages[@]}"

# The skipped tests of a run with their reasons, and how many tests the GoogleTest programs have passed.
tell_tests()
{
    awk '
        /^\[ RUN      \]/ { reason = ""; collects = 0 }
        /^\[  SKIPPED \] .* \([0-9]+ ms\)$/ { print "skipped: " $4 ":" reason; collects = 0 }
        /^\[  PASSED  \] [0-9]+ tests?\.$/ { passed += $4 }
        collects { reason = reason ($0 == "" ? "" : " " $0) }
        /: Skipped$/ { collects = 1 }
        END { print passed + 0 " GoogleTest tests passed" }
    ' "$1"
}

run_tests()
{
    local preset=$1 log=build/$1/test-output.txt
    say "Testing ($preset)"
    if ! ctest --preset "$preset" --parallel "$(nproc)" --no-label-summary >"$log" 2>&1; then
        cat "$log"
        say "Failed tests; ctest --preset $preset -C each -R '<name>' runs one alone"
        grep '^\[  FAILED  \] .* ms)$' "$log" || true
        exit 1
    fi
    tell_tests "build/$preset/Testing/Temporary/LastTest.log"
    grep -A 3 'tests passed' "$log"
}

if [ $quick = no ]; then
    build sanitize
    run_tests sanitize
    build thread-sanitize
    run_tests thread-sanitize
fi
build release
run_tests release
