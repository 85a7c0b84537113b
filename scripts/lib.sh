# SPDX-License-Identifier: MIT
# Functions and lists shared by run.sh, test.sh and .ci/run. Source it from the top of the tree.

# Another clone of this tree uses what this one has compiled.
export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1

say() { printf '\n== %s\n' "$*"; }

# What the build and the sample need.
BUILD_PACKAGES="g++ cmake ninja-build pkg-config ccache qt6-base-dev libtinyxml-dev libicu-dev libcli11-dev libpng-dev
    libjpeg62-turbo-dev libgif-dev zlib1g-dev libdeflate-dev libgsf-1-dev libexpat1-dev libxlsxwriter-dev libxcb1-dev
    libfreetype-dev libharfbuzz-dev libxxhash-dev
    gcc-arm-linux-gnueabihf libc6-dev-armhf-cross qemu-user"
# What the tests need in addition.
TEST_PACKAGES="libgtest-dev libgmock-dev librapidcheck-dev python3 llvm-14 elfutils binutils gettext gnumeric libxml2-utils qt6-l10n-tools python3-xlrd python3-xlwt
    libreoffice-calc-nogui git xvfb openbox xdotool xclip fonts-dejavu-core fonts-wqy-microhei fonts-lohit-deva
    shared-mime-info pandoc mandoc bash-completion zsh fish"
# What scripts/package.sh needs in addition to BUILD_PACKAGES.
PACKAGE_PACKAGES="debhelper dpkg-dev pandoc python3"
# What the stricter checks need in addition to the tests.
CHECK_PACKAGES="clang-14 libclang-rt-14-dev clang-format clang-tidy libbenchmark-dev binutils-arm-none-eabi gettext
    imagemagick qt6-base-dev-tools desktop-file-utils appstream codespell python3-jsonschema translate-toolkit
    lintian $PACKAGE_PACKAGES"

# Installs those of the given Debian packages that are missing; silent and offline if none is.
need_packages() {
    local missing="" package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    say "Installing:$missing"
    local sudo=""
    [ "$(id -u)" = 0 ] || sudo=sudo
    $sudo apt-get update -qq
    # shellcheck disable=SC2086
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

# configure FOLDER [cmake option ...]
configure() {
    local folder="$1"
    shift
    mkdir -p "$folder"
    cmake -S . -B "$folder" -G Ninja -DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache "$@" >"$folder/configure.log" 2>&1 ||
        { cat "$folder/configure.log"; return 1; }
}

# configure_and_build FOLDER [cmake option ...]: configures once, and builds what has changed.
configure_and_build() {
    say "Building into $1"
    configure "$@" && cmake --build "$1"
}
