#!/usr/bin/env bash
# Lets the fuzz targets of fuzz/ look for inputs that break their laws, crash or hang, with clang's sanitizers. Each
# core works on a target of its own.
# Usage: scripts/fuzz.sh [SECONDS] [TARGET...]      (60 seconds for each target; without TARGET all of them)
# Ends with 1 when a target has a finding, whose file is named then; the others have their time all the same.

set -euo pipefail
seconds=60
if [[ ${1:-} =~ ^[0-9]+$ ]]; then
    seconds=$1
    shift
fi
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    for file in fuzz/*_fuzzer.cpp; do
        targets+=("$(basename "$file" _fuzzer.cpp)")
    done
fi
for target in "${targets[@]}"; do
    if [ ! -f "fuzz/${target}_fuzzer.cpp" ]; then
        echo "usage: scripts/fuzz.sh [SECONDS] [TARGET...]; there is no fuzz/${target}_fuzzer.cpp" >&2
        exit 2
    fi
done
ensure_packages "${buildPackages[@]}" "${runtimePackages[@]}" clang libclang-rt-dev
build fuzz fuzzers

folder=build/fuzz
say "Making seeds of random documents in $folder/made"
"$folder/fuzz/make_fuzz_seeds" "$folder/made"

# Some targets write files: in memory, where the machine has such a folder, and gone at the end whatever happens.
memory=/dev/shm
[ -d "$memory" ] && [ -w "$memory" ] || memory=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d "$memory/harrow-fuzz-XXXXXX")
export TMPDIR
stop()
{
    local running
    running=$(jobs -p)
    [ -z "$running" ] || kill $running 2>/dev/null || true
    wait
    rm -rf "$TMPDIR"
}
trap stop EXIT

# What was found in earlier runs is the start of the next; the seeds of the repository and those made stay as they are.
fuzz()
{
    local target=$1 log=build/fuzz/$1-output.txt
    local sources=("$folder/corpus/$target" "fuzz/seeds/$target") words=()
    mkdir -p "$folder/corpus/$target" "$folder/findings/$target"
    [ ! -d "$folder/made/$target" ] || sources+=("$folder/made/$target")
    [ ! -f "fuzz/words/$target" ] || words=(-dict="fuzz/words/$target")
    say "Fuzzing $target for $seconds s; the output goes to $log"
    if ! "$folder/fuzz/${target}_fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$folder/findings/$target/" "${words[@]}" \
        "${sources[@]}" >"$log" 2>&1; then
        local finding
        finding=$(sed -n 's/^.*Test unit written to //p' "$log" | tail -n 1)
        tail -n 60 "$log"
        say "Finding in $target: ${finding:-none was written, see $log}"
        [ -z "$finding" ] || say "Once more: $folder/fuzz/${target}_fuzzer $finding"
        return 1
    fi
    say "No finding in $target: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs," \
        "$(find "$folder/corpus/$target" -type f | wc -l) kept in $folder/corpus/$target"
}

result=0
running=0
cores=$(nproc)
for target in "${targets[@]}"; do
    if [ "$running" -ge "$cores" ]; then
        wait -n || result=1
        running=$((running - 1))
    fi
    fuzz "$target" &
    running=$((running + 1))
done
while [ "$running" -gt 0 ]; do
    wait -n || result=1
    running=$((running - 1))
done
exit $result
