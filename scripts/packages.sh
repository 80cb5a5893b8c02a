# shellcheck shell=bash
# Installs Debian packages that are missing. Without dpkg nothing is installed, and the build names
# what it misses. This file is sourced.

is_installed() {
    [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

print_missing_packages() {
    local package
    for package in "$@"; do
        is_installed "$package" || echo "$package"
    done
}

can_install_packages() {
    [[ -n $(type -P apt-get) ]] && { ((EUID == 0)) || [[ -n $(type -P sudo) ]]; }
}

run_apt_get() {
    local as_root=()
    ((EUID == 0)) || as_root=(sudo)
    when_apt_is_free "${as_root[@]}" env LC_ALL=C DEBIAN_FRONTEND=noninteractive \
        apt-get --quiet --yes "$@"
}

# Runs a command of apt. While another program has apt's locks it is tried again, for some minutes:
# a fresh machine updates itself. (apt can wait by itself, but only for one of its locks.)
when_apt_is_free() {
    local longest_seconds=900 start=$SECONDS told=false errors status
    while true; do
        status=0
        { errors=$("$@" 2>&1 >&3) || status=$?; } 3>&1
        if ((status == 0 || SECONDS - start >= longest_seconds)) ||
            [[ $errors != *"Could not get lock"* ]]; then
            [[ -z $errors ]] || echo "$errors" >&2
            return "$status"
        fi
        "$told" || echo "Another program is using apt; waiting until it is done." >&2
        told=true
        sleep 5
    done
}

download_and_install() {
    echo "Installing $*"
    run_apt_get update && run_apt_get install --no-install-recommends "$@"
}

# Says once that nothing can be looked up.
told_of_no_dpkg=false
has_dpkg() {
    [[ -z $(type -P dpkg-query) ]] || return 0
    "$told_of_no_dpkg" ||
        echo "There is no dpkg here, so nothing is installed; what is missing will be named." >&2
    told_of_no_dpkg=true
    return 1
}

# Ends the script where a package is missing and cannot be installed.
install_missing_packages() {
    local missing
    has_dpkg || return 0
    mapfile -t missing < <(print_missing_packages "$@")
    ((${#missing[@]} > 0)) || return 0
    if ! can_install_packages || ! download_and_install "${missing[@]}"; then
        echo "Please install these packages and start again: ${missing[*]}" >&2
        exit 1
    fi
}

install_optional_package() {
    has_dpkg || return 0
    is_installed "$1" && return 0
    can_install_packages && download_and_install "$1" && return 0
    echo "Going on without the package $1." >&2
}

install_build_packages() {
    install_missing_packages \
        ca-certificates \
        cmake \
        fonts-liberation \
        g++ \
        libbenchmark-dev \
        libcurl4-openssl-dev \
        libdbus-1-dev \
        libgif-dev \
        libgtest-dev \
        libseccomp-dev \
        libturbojpeg0-dev \
        libxcb1-dev \
        ninja-build \
        pkgconf \
        qt6-base-dev
    # With this one Lookfar shows WebP pictures too.
    install_optional_package qt6-image-formats-plugins
}

# The tests drive windows through the X server, read them as a screen reader does, and play a host
# with a bad certificate.
install_test_packages() {
    install_missing_packages \
        at-spi2-core \
        dbus-daemon \
        libatspi2.0-dev \
        libxcb-keysyms1-dev \
        libxcb-xtest0-dev \
        openssl
}

# For making and checking the Debian packages.
install_packaging_packages() {
    install_missing_packages \
        appstream \
        binutils \
        blhc \
        debhelper \
        desktop-file-utils \
        diffoscope-minimal \
        dpkg-dev \
        file \
        imagemagick \
        librsvg2-bin \
        lintian \
        man-db \
        mandoc \
        procps \
        shellcheck \
        wmctrl \
        xdotool
}

# For building the fuzz targets, and for the names of places in their reports.
install_fuzz_packages() {
    install_missing_packages clang-19 libclang-rt-19-dev libfuzzer-19-dev llvm-19
}

install_virtual_display_packages() {
    install_missing_packages openbox x11-utils x11-xserver-utils xvfb
}
