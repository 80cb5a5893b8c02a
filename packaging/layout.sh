# shellcheck shell=bash disable=SC2034
# Names that the checks of the package share. This file is sourced in the folder of the sources.

application=org.lookfar.Lookfar

# In pixels; the package has to have every icon that there is, and the windows all but the largest,
# which is for menus.
icon_sizes=(resources/icon-*.png)
icon_sizes=("${icon_sizes[@]#*-}")
icon_sizes=("${icon_sizes[@]%.png}")
menu_icon_size=512

# The files that `cmake --install` lays out, and those of the package.
work=$PWD/build/package/checked
installed=$work/installed
unpacked=$work/unpacked

fail() {
    echo "$1" >&2
    exit 1
}
