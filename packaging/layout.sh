# shellcheck shell=bash disable=SC2034
# What the checks of the package share, which use these names. This file is sourced in the folder
# of the sources.

application=org.lookfar.Lookfar
icon_sizes=(16 22 24 32 48 64 128 256)

# What cmake --install gives, and the files of the package.
work=$PWD/build/package/checked
installed=$work/installed
unpacked=$work/unpacked

fail() {
    echo "$1" >&2
    exit 1
}
