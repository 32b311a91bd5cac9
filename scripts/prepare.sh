# Sourced by ./run, ./test and ./lint: what the build needs, installed where it is missing, and the build itself.
# shellcheck shell=bash disable=SC2034

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# package|what it is for
to_build='g++|the compiler
cmake|the build
ninja-build|the build
pkg-config|finding libraries
qt6-base-dev|windows, printing and pictures
qt6-svg-dev|icons and pictures in SVG
qt6-translations-l10n|the texts that Qt brings, in other languages than English
nettle-dev|the cipher of music files
libharfbuzz-dev|the texts of drawn PDF files, and the parts of fonts in them
libfontconfig-dev|the font files of the machine
zlib1g-dev|the compression of drawn PDF files
nlohmann-json3-dev|documents as JSON
libcli11-dev|the command line of quillon-cli
libfluidsynth-dev|the built-in synthesizer
timgm6mb-soundfont|the instruments that it plays
librtmidi-dev|the MIDI ports of the machine
libcurl4-openssl-dev|fetching tabs from the web
fonts-liberation|the fonts of a page'
to_test='libgtest-dev|the tests
libgmock-dev|the tests
clang-format|the test of the formatting'
to_bench='fluidsynth|the command that the writing of sound files is measured beside'
to_use_clang='clang|the other compiler'
to_lint='clang|the other compiler
clang-tidy|the linter'

is_installed() { [ "$(dpkg-query -W -f='${db:Status-Abbrev}' "$1" 2>/dev/null)" = 'ii ' ]; }

# Installs what is missing of the lists given, and says what and why. Asks the package system for nothing else.
need() {
    local missing=() package purpose lists
    lists=$(printf '%s\n' "$@")
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        echo "No Debian package system here; the build needs the like of: $(cut -d'|' -f1 <<<"$lists" | xargs)"
        return
    fi
    while IFS='|' read -r package purpose; do
        if is_installed "$package"; then continue; fi
        ((${#missing[@]})) || echo 'Missing on this machine:'
        printf '  %-20s %s\n' "$package" "$purpose"
        missing+=("$package")
    done <<<"$lists"
    ((${#missing[@]})) || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Installing needs root, and there is no sudo. As root, run: apt-get install ${missing[*]}" >&2
            return 1
        fi
        echo 'Installing them with sudo, which may ask for your password.'
        as_root=(sudo)
    else
        echo 'Installing them.'
    fi
    # The lists of a fresh machine are empty or old; when they can't be renewed, those at hand may do.
    "${as_root[@]}" apt-get update -qq || echo 'The package lists could not be renewed; going on with those at hand.'
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build PRESET [TARGET...]: configures, and builds what changed, into build/PRESET.
build() {
    local preset=$1 targets=()
    shift
    if (($#)); then targets=(--target "$@"); fi
    (cd "$root" && cmake --preset "$preset" --log-level=WARNING >/dev/null && cmake --build "build/$preset" "${targets[@]}")
}
