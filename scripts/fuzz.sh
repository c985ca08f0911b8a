#!/usr/bin/env bash
# Lets the fuzz targets of fuzz/ look for inputs that break their laws, crash or hang, with clang's sanitizers.
# Usage: scripts/fuzz.sh [SECONDS] [TARGET...]      (60 seconds for each target; without TARGET all of them)
# Ends with 1 at the first target that has a finding, whose file is named then.

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
ensure_packages "${buildPackages[@]}" clang libclang-rt-dev
build fuzz fuzzers

# What was found in earlier runs is the start of the next; the seeds of the repository stay as they are.
fuzz()
{
    local target=$1 folder=build/fuzz log=build/fuzz/$1-output.txt
    mkdir -p "$folder/corpus/$target" "$folder/findings/$target"
    say "Fuzzing $target for $seconds s; the output goes to $log"
    if ! "$folder/fuzz/${target}_fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$folder/findings/$target/" \
        "$folder/corpus/$target" "fuzz/seeds/$target" >"$log" 2>&1; then
        tail -n 60 "$log"
        local finding
        finding=$(sed -n 's/^.*Test unit written to //p' "$log" | tail -n 1)
        say "Finding in $target: ${finding:-none was written, see $log}"
        [ -z "$finding" ] || say "Once more: $folder/fuzz/${target}_fuzzer $finding"
        exit 1
    fi
    say "No finding in $target: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs," \
        "$(find "$folder/corpus/$target" -type f | wc -l) kept in $folder/corpus/$target"
}

for target in "${targets[@]}"; do
    fuzz "$target"
done
