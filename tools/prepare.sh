# SPDX-License-Identifier: GPL-3.0-or-later
# What `run` and `test` share: the packages that a bare Debian 12 lacks, and the builds. Sourced, not run.

BUILD_PACKAGES="g++ cmake ninja-build ccache zlib1g-dev robin-map-dev qt6-base-dev qt6-serialport-dev qt6-charts-dev libqt6opengl6-dev
    qt6-svg-dev qt6-qpa-plugins libgl1-mesa-dev libxkbcommon-dev fonts-dejavu-core"
TEST_PACKAGES="libgtest-dev libgmock-dev clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 python3 python3-pil direwolf socat iproute2
    appstream desktop-file-utils mandoc file python3-pyatspi at-spi2-core dbus xvfb xauth openbox xdotool"

# Installs the packages that are missing, and nothing where none is.
install_missing() {
    local missing=""
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    local as_root=""
    [ "$(id -u)" = 0 ] || as_root="sudo"
    echo "Installing:$missing"
    $as_root env DEBIAN_FRONTEND=noninteractive sh -c "apt-get update -q && apt-get install -yq --no-install-recommends $missing" \
        > "${TMPDIR:-/tmp}/halvern-packages.log" 2>&1 || {
        cat "${TMPDIR:-/tmp}/halvern-packages.log"
        echo "The packages could not be installed." >&2
        return 1
    }
}

# build PRESET [TARGET...]: quiet where all is well.
build() {
    local preset="$1"
    shift
    cmake --preset "$preset" > "build-$preset.log" 2>&1 && ninja -C "build/$preset" "$@" >> "build-$preset.log" 2>&1 || {
        tail -n 60 "build-$preset.log"
        echo "The build failed; build-$preset.log has all of it." >&2
        return 1
    }
}
