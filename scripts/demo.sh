#!/usr/bin/env bash
# Compares two PDF files object by object and explains the outcome.
# Usage: scripts/demo.sh [LEFT.pdf RIGHT.pdf]      (default: two versions of a leaflet in examples/data)

set -euo pipefail
if [ $# -ne 0 ] && [ $# -ne 2 ]; then
    echo "usage: scripts/demo.sh [LEFT.pdf RIGHT.pdf]" >&2
    exit 2
fi
# The names may be relative to the folder that the caller stands in.
files=()
for file in "$@"; do
    files+=("$(realpath -- "$file")")
done
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [ ${#files[@]} -eq 0 ]; then
    files=(examples/data/leaflet-v1.pdf examples/data/leaflet-v2.pdf)
fi

ensure_packages "${buildPackages[@]}" "${runtimePackages[@]}"
build release examples

say "Comparing, object by object"
echo "   left:  ${files[0]}"
echo "   right: ${files[1]}"
echo "   A line for each difference: kind, label, place on the left, place on the right, the values left vs right."
echo
outcome=0
build/release/examples/compare_documents "${files[@]}" || outcome=$?
echo
case $outcome in
    0) say "No difference: the two documents are equal." ;;
    1) say "The documents differ; the lines above name the differences. Nothing went wrong." ;;
    *) say "The comparison could not be made (exit code $outcome); the message stands above."
       exit "$outcome" ;;
esac
