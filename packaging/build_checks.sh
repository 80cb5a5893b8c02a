# shellcheck shell=bash
# Builds the packages, and checks how they are built. This file is sourced.

source packaging/layout.sh

# Puts the binary packages beside the folder of the sources.
build_packages() {
    (cd "$1" && dpkg-buildpackage --build=binary --unsigned-source --unsigned-changes)
}

# Expects every command of a build's log to have the flags that harden a program.
check_flags() {
    local remarks
    remarks=$(blhc --all --debian --arch "$(dpkg --print-architecture)" "$1") ||
        fail "In $1 flags are missing: $remarks"
}

check_flags_of_package() {
    echo "The flags of the package's build"
    check_flags "$build_log"
}

# Expects the commands of the preset for other systems to have its own flags and those of the
# environment, which together make up all that harden a program. Nothing is compiled for it.
check_flags_of_preset() {
    echo "The flags of the preset"
    local folder=$work/preset
    CXXFLAGS="-g -Wformat -Werror=format-security" \
        cmake --preset package -B "$folder" >/dev/null
    {
        # Only what follows such a line is taken for a log of commands.
        echo "dpkg-buildpackage: the commands of the preset"
        cmake --build "$folder" -- -n -v
    } >"$folder/log"
    check_flags "$folder/log"
}

# Expects the debug symbols to be those of the program, by whose build ID a debugger finds them.
check_symbols() {
    echo "The debug symbols"
    local id path
    id=$(readelf --notes "$unpacked/usr/bin/lookfar" | sed --quiet 's/^ *Build ID: //p')
    path=./usr/lib/debug/.build-id/${id::2}/${id:2}.debug
    dpkg-deb --fsys-tarfile "$1" | tar --list "$path" >/dev/null ||
        fail "$1 has no debug symbols of the program."
}

# Builds the packages anew in another folder, with another mode of new files, another language and
# another time zone, and compiles everything again.
build_again() (
    umask 0002
    export LC_ALL=C TZ=XXX-14 CCACHE_DISABLE=1
    mkdir -p "$again"
    dpkg-source --extract "$made"/*.dsc "$again/sources-elsewhere"
    build_packages "$again/sources-elsewhere"
)

# Tells what differs between two packages, without the disassembly and the tables of the program,
# which fill thousands of lines.
compare_packages() {
    diffoscope --exclude-command '^(objdump|readelf) ' "$1" "$2"
}

# Expects the packages to be the same, byte for byte, if they are built again.
check_second_build() {
    echo "A second build"
    local log=$made/again.log file
    build_again >"$log" 2>&1 || fail "The second build fails: $(tail "$log")"
    for file in "$@"; do
        compare_packages "$file" "$again/${file##*/}" ||
            fail "A second build makes another ${file##*/}."
    done
}

# Takes the package of the program and that of its debug symbols.
check_builds() {
    check_flags_of_package
    check_flags_of_preset
    check_symbols "$2"
    check_second_build "$@"
}
