# Shared by the scripts of this folder; they source it. Leaves the shell in the root of the repository.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# What the build needs (Debian 12 names), and the programs that the tests ask for a second opinion.
buildPackages=(
    g++ cmake ninja-build ccache pkg-config
    libboost-dev libboost-filesystem-dev libboost-system-dev
    libqpdf-dev libdeflate-dev zlib1g-dev liburiparser-dev liblcms2-dev
    libfreetype-dev libharfbuzz-dev
    libjpeg62-turbo-dev libopenjp2-7-dev libtiff-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    libcli11-dev libfmt-dev nlohmann-json3-dev
)
# What the library itself reads when it runs: its own fonts, and the maps from character codes to glyphs.
runtimePackages=(fonts-liberation2 fonts-dejavu-core poppler-data)
witnessPackages=(qpdf poppler-utils mupdf-tools)

say()
{
    printf '== %s\n' "$*"
}

# ensure_packages NAME...: installs those that are missing, and says so. Silent when all are there.
ensure_packages()
{
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "This is no Debian system; the build expects the equivalents of: $*"
        return
    fi
    local missing=() name
    for name in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" != installed ]; then
            missing+=("$name")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return
    fi
    say "Installing missing packages: ${missing[*]}"
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "Neither root nor sudo: please install these packages first."
            exit 2
        fi
        root=(sudo)
    fi
    "${root[@]}" apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null
}

# build PRESET [TARGET]: configures and builds; prints the tool's output only when it fails.
build()
{
    local preset=$1 target=${2:-all} log
    log=build/$preset/build-output.txt
    mkdir -p "build/$preset"
    say "Building $target ($preset), the first time for some minutes; the compiler's output goes to $log"
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" --target "$target"; } >"$log" 2>&1; then
        tail -n 60 "$log"
        say "The build failed; all of its output is in $log"
        exit 2
    fi
}
