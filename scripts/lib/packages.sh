# Installs Debian packages that are missing, and only those. Sourced by the commands in scripts/.

vorn_build_packages=(g++ cmake ninja-build ccache qt6-base-dev libsqlite3-dev libgl-dev)
vorn_run_packages=(libqt6sql6-sqlite libqt6sql6-psql qt6-image-formats-plugins qt6-translations-l10n fontconfig fonts-liberation
    fonts-wine libxcb-cursor0)
vorn_test_packages=(libgtest-dev postgresql)
vorn_bench_packages=(libbenchmark-dev)
vorn_fuzz_packages=(clang libclang-rt-14-dev libgtest-dev)
vorn_check_packages=(clang-format pkgconf)

vorn_install() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing: ${missing[*]}" >&2
    local as_root=()
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { echo "These packages are missing and need root to install: ${missing[*]}" >&2; return 1; }
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -q >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}" >&2
}

# Configures a preset and builds one target of it: vorn_build PRESET TARGET CMAKE-OPTION...
vorn_build() {
    local preset=$1 target=$2
    shift 2
    export CCACHE_SLOPPINESS=pch_defines,time_macros # so that it works with the tests' precompiled headers
    cmake --preset "$preset" -DCMAKE_CXX_COMPILER_LAUNCHER=ccache "$@" >&2
    cmake --build "build/$(vorn_build_dir "$preset")" --target "$target" >&2
}

vorn_build_dir() {
    case $1 in
    bench) echo release ;;
    *) echo "$1" ;;
    esac
}
