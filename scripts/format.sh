#!/usr/bin/env bash
# Checks that the sources stand as .clang-format wants them, and names the lines that do not.
# Usage: scripts/format.sh [--fix]      (--fix rewrites the files instead)

set -euo pipefail
mode=(--dry-run --Werror)
case "${1:-}" in
    "") ;;
    --fix) mode=(-i) ;;
    *) echo "usage: scripts/format.sh [--fix]" >&2; exit 2 ;;
esac
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
ensure_packages clang-format

git ls-files -z --cached --others --exclude-standard -- '*.h' '*.hpp' '*.cpp' |
    xargs -0 --no-run-if-empty clang-format "${mode[@]}"
say "The format is right."
