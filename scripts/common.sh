# What demo and test share: the machine's packages and the builds. Sourced, not run.

# Wine wants the page at 0x7ffe0000 for itself. Debian's has no preloader that keeps it free, and the kernel lays the heap of
# a program, of 132 KB at first, at random within a gigabyte around: over that page in one start of some 8,000, which then
# fails with ERROR_INTERNAL_ERROR. So all that a script starts has fixed addresses, ADDR_NO_RANDOMIZE of personality(2),
# where the machine allows it.
has_fixed_addresses() { ((0x$(< /proc/self/personality) & 0x40000)); }

if [ "${BASH_SOURCE[-1]}" = "$0" ] && ! has_fixed_addresses && setarch -R true 2> /dev/null; then
    exec setarch -R "$BASH" "$0" "$@"
fi

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

say() { printf '\n== %s\n' "$*"; }

# alone FILE COMMAND...: runs the command while no other script runs one with that file; suites run beside each other.
alone() {
    local file=$1
    shift
    mkdir -p "$(dirname "$file")"
    (flock 9 && "$@") 9> "$file"
}

update_package_lists() { if [ "$(id -u)" = 0 ]; then apt-get update -qq; else sudo apt-get update -qq; fi; }

# Installs those of the named Debian packages that the machine lacks.
need_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] || alone "$root/build/apt.lock" install_packages "${missing[@]}"
}

install_packages() {
    say "Installing $*"
    local sudo=
    [ "$(id -u)" = 0 ] || sudo=sudo
    update_package_lists
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "$@" > /dev/null
}

# unpack_packages FOLDER PACKAGE...: unpacks the named Debian packages into a folder, once. What is unpacked is not
# installed: a daemon among it starts neither now nor with the machine.
unpack_packages() { alone "$root/build/apt.lock" unpack_packages_alone "$@"; }

unpack_packages_alone() {
    local folder=$1 archives
    shift
    [ "$(cat "$folder/unpacked" 2> /dev/null)" != "$*" ] || return 0
    say "Unpacking $*"
    rm -rf "$folder"
    mkdir -p "$folder"
    archives=$(mktemp -d)
    # Where apt gives up its rights for a download it could not write there.
    chmod 777 "$archives"
    (cd "$archives" && apt-get download -qq "$@" > /dev/null) || {
        rm -rf "$archives"
        return 1
    }
    local archive
    for archive in "$archives"/*.deb; do dpkg -x "$archive" "$folder" || return 1; done
    rm -rf "$archives"
    echo "$*" > "$folder/unpacked"
}

# lacking_packages PACKAGE...: those of the named Debian packages, and of what they need, that the machine lacks.
lacking_packages() {
    apt-get -s install --no-install-recommends "$@" 2> /dev/null | awk '/^Inst/ {print $2}'
    return "${PIPESTATUS[0]}"
}

build_packages() {
    need_packages cmake ninja-build ccache clang g++-mingw-w64-x86-64-posix lld wixl msitools librsvg2-bin icoutils netpbm fonttools fonts-noto-core \
        fonts-liberation fp-utils googletest \
        libglib2.0-dev libmsi-dev nlohmann-json3-dev pkg-config \
        python3 python3-jsonschema wine wine64 xvfb xauth
}

# The compiler cache is to serve sources with precompiled headers, and not to preprocess what it does not know.
export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS:-pch_defines,time_macros,include_file_mtime,include_file_ctime}
export CCACHE_DEPEND=${CCACHE_DEPEND:-1}

# Prints the files that differ from the merge base with the upstream branch (or the remote's default branch), committed or
# not. Without either only the working tree counts.
changed_files() {
    local base=HEAD upstream
    for upstream in '@{upstream}' origin/HEAD origin/main origin/master; do
        if git rev-parse -q --verify "$upstream" > /dev/null 2>&1; then
            base=$(git merge-base HEAD "$upstream")
            break
        fi
    done
    git diff --name-only --no-renames "$base"
    git ls-files --others --exclude-standard
}

# The tests that passed on a second try only, one in a line.
second_tries=build/second-tries

# may_try_again: whether a test that failed is to be tried a second time. KESTRUNE_TRIES=1 in the environment says no.
may_try_again() { [ "${KESTRUNE_TRIES:-2}" != 1 ]; }

# note_second_try TESTS: keeps the names, divided by colons. Fails where no second try is allowed.
note_second_try() {
    tr ':' '\n' <<< "$1" >> "$second_tries"
    [ "${CI:-}" != true ]
}

configure() { [ -f "build/$1/build.ninja" ] || cmake --preset "$1" > /dev/null; }

# build PRESET [TARGET...]: configures the preset once and builds the targets, or everything. The progress is shown on a
# terminal only.
build() {
    local preset=$1
    shift
    configure "$preset"
    local targets=()
    [ $# -eq 0 ] || targets=(--target "$@")
    local quiet=()
    [ -t 1 ] || quiet=(-- --quiet)
    alone "build/$preset.lock" cmake --build "build/$preset" "${targets[@]}" "${quiet[@]}"
}
