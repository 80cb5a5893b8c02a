# shellcheck shell=bash disable=SC2034
# Names that the checks of the package share. This file is sourced in the folder of the sources.

application=org.lookfar.Lookfar

# In pixels; the package has to have every icon that there is, and the windows all but the largest,
# which is for menus.
icon_sizes=(resources/icon-*.png)
icon_sizes=("${icon_sizes[@]#*-}")
icon_sizes=("${icon_sizes[@]%.png}")
menu_icon_size=512

# What is made of the sources: the source package, which is unpacked and built there, the log of
# that build, and the binary packages; and what a second build makes.
made=$PWD/build/debian
sources=$made/sources
build_log=$made/build.log
again=$made/again

# The files that `cmake --install` lays out, and those of the binary package.
work=$made/checked
installed=$work/installed
unpacked=$work/unpacked

fail() {
    echo "$1" >&2
    exit 1
}

# Takes what tells the text, the text that it tells, and the right one.
expect_text() {
    [[ $2 == "$3" ]] || fail "$1 should tell '$3', but tells '$2'."
}
