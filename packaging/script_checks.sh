# shellcheck shell=bash
# Checks of the shell scripts, those of the package and those of the sources. This file is sourced.

source packaging/layout.sh

print_shell_scripts() {
    git ls-files '*.sh'
    git grep --files-with-matches '^#!.*sh$'
}

check_shell_scripts() {
    echo "The shell scripts"
    local scripts
    mapfile -t scripts < <(print_shell_scripts | sort --unique)
    ((${#scripts[@]} > 0)) || fail "There are no tracked shell scripts."
    shellcheck --external-sources "${scripts[@]}"
}

check_help() {
    local script option
    for script in ./run ./test "$unpacked/usr/bin/lookfar-desktop"; do
        for option in -h --help; do
            [[ $("$script" "$option") == "Usage: "* ]] || fail "$script $option prints no help."
        done
    done
}

check_folder_of_run() {
    local missing=$work/missing
    expect_text ./run "$(./run "$missing" 2>&1)" "$missing does not exist; see ./run --help"
    expect_text ./run "$(./run run 2>&1)" "run is no folder; see ./run --help"
}

# Installs packages that there are not, on a system without dpkg.
install_without_dpkg() (
    # shellcheck disable=SC2123 # No program shall be found.
    PATH=
    install_missing_packages no-such-package
    install_missing_packages another-one
    install_optional_package a-third
    echo "It goes on."
)

check_systems_without_dpkg() {
    local said
    said=$(install_without_dpkg 2>&1) || fail "Without dpkg the scripts end."
    expect_text "A system without dpkg" "$said" \
        $'There is no dpkg here, so nothing is installed; what is missing will be named.\nIt goes on.'
}

# Plays a command of apt's that another program keeps from its work at the first time, and that
# fails for another reason at the third.
be_apt() {
    echo "once more" >>"$work/tries"
    case $(wc -l <"$work/tries") in
        1) echo "E: Could not get lock /var/lib/dpkg/lock-frontend." >&2 && return 100 ;;
        2) echo "Done." ;;
        *) echo "E: There is no such package." >&2 && return 100 ;;
    esac
}

check_waiting_for_apt() {
    rm -f "$work/tries"
    expect_text "A busy apt" "$(when_apt_is_free be_apt 2>&1)" \
        $'Another program is using apt; waiting until it is done.\nDone.'
    expect_text "A failing apt" "$(when_apt_is_free be_apt 2>&1 || echo "It fails.")" \
        $'E: There is no such package.\nIt fails.'
}

check_scripts() {
    check_shell_scripts
    echo "What the scripts say"
    check_help
    check_folder_of_run
    check_systems_without_dpkg
    check_waiting_for_apt
}
