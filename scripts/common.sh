# What demo and test share: the machine's packages and the builds. Sourced, not run.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

say() { printf '\n== %s\n' "$*"; }

# Installs those of the named Debian packages that the machine lacks.
need_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    say "Installing ${missing[*]}"
    local sudo=
    [ "$(id -u)" = 0 ] || sudo=sudo
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null
}

build_packages() {
    need_packages cmake ninja-build ccache g++-mingw-w64-x86-64-posix wixl msitools librsvg2-bin icoutils netpbm fonttools fonts-noto-core \
        fonts-liberation fp-utils googletest \
        python3 wine wine64 xvfb xauth
}

# build PRESET [TARGET...]: configures the preset once and builds the targets, or everything.
build() {
    local preset=$1
    shift
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" > /dev/null
    local targets=()
    [ $# -eq 0 ] || targets=(--target "$@")
    cmake --build "build/$preset" "${targets[@]}" -- --quiet
}
