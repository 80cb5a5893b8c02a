# shellcheck shell=bash
# Checks of the files of the package. This file is sourced.

source packaging/layout.sh

# Runs a validator and expects it to print nothing, since some exit with 0 although they complain.
expect_silence() {
    local output
    output=$("$@" 2>&1) || fail "$* failed: $output"
    [[ -z $output ]] || fail "$*: $output"
}

print_installed_files() {
    local pixels
    printf '%s\n' \
        bin/lookfar \
        bin/lookfar-desktop \
        libexec/lookfar/lookfar-decoder \
        "share/applications/$application.desktop" \
        "share/icons/hicolor/scalable/apps/$application.svg" \
        share/man/man1/lookfar-desktop.1.gz \
        share/man/man1/lookfar.1.gz \
        "share/metainfo/$application.metainfo.xml"
    for pixels in "${icon_sizes[@]}"; do
        echo "share/icons/hicolor/${pixels}x$pixels/apps/$application.png"
    done
}

print_packaged_files() {
    print_installed_files
    printf '%s\n' \
        share/doc/lookfar/changelog.gz \
        share/doc/lookfar/copyright
}

# Expects a folder to hold exactly the files that the standard input lists.
check_file_list() {
    diff --unified --label expected --label "$1" \
        <(LC_ALL=C sort) <(find "$1" ! -type d -printf '%P\n' | LC_ALL=C sort) ||
        fail "These are not the files that $1 should have."
}

check_file_lists() {
    echo "The installed files"
    print_installed_files | check_file_list "$installed"
    print_packaged_files | check_file_list "$unpacked/usr"
}

# Prints what a manual page says in its last line, such as: Lookfar 0.1.0 2026-11-25 LOOKFAR(1)
print_foot_of_page() {
    MANWIDTH=80 man -l "$unpacked/usr/share/man/man1/$1.1.gz" | tail -n 1 | tr --squeeze-repeats ' '
}

# Expects the version and the date of the changelog wherever they are told.
check_versions() {
    echo "The version"
    local changelog=$unpacked/usr/share/doc/lookfar/changelog.gz version date page
    version=$(dpkg-parsechangelog --file "$changelog" --show-field Version)
    date=$(date --utc --date "$(dpkg-parsechangelog --file "$changelog" --show-field Date)" +%F)
    expect_text "The package" "$(dpkg-deb --field "$1" Version)" "$version"
    expect_text "The AppStream data" \
        "$(sed --quiet 's/^ *<release \(.*\)>$/\1/p' \
            "$unpacked/usr/share/metainfo/$application.metainfo.xml" | head -n 1)" \
        "version=\"$version\" date=\"$date\""
    for page in lookfar lookfar-desktop; do
        expect_text "The manual page $page" "$(print_foot_of_page "$page")" \
            "Lookfar $version $date ${page^^}(1)"
    done
}

check_desktop_entry() {
    echo "The desktop entry"
    expect_silence desktop-file-validate "$unpacked/usr/share/applications/$application.desktop"
}

# Takes out of the validator's remarks those that debian/README.source answers.
print_unanswered() {
    grep '^ *[A-Z]: ' | grep --invert-match --regexp ' cid-contains-uppercase-letter ' \
        --regexp ' unknown-tag developer$'
}

check_appstream_data() {
    echo "The AppStream data"
    local remarks
    remarks=$(appstreamcli validate-tree --no-net --pedantic "$unpacked") ||
        fail "The AppStream data are not valid: $remarks"
    ! print_unanswered <<<"$remarks" || fail "These remarks have no answer."
}

check_icon() {
    local icon=$1 pixels=$2 properties
    properties=$(identify -format '%m %wx%h %[opaque]' "$icon")
    [[ ${properties,,} == "png ${pixels}x$pixels false" ]] ||
        fail "$icon should be a PNG file of $pixels pixels with transparency, but is $properties."
    cmp "$icon" "resources/icon-$pixels.png" || fail "$icon is not the icon of the windows."
}

# Expects the scalable icon to look like the largest of the others.
check_scalable_icon() {
    local icon=$1 difference
    difference=$(rsvg-convert --width "$menu_icon_size" "$icon" |
        compare -metric RMSE - "resources/icon-$menu_icon_size.png" null: 2>&1 || true)
    [[ $difference =~ \(0(\.00[0-9]*)?\)$ ]] ||
        fail "$icon is not drawn like the other icons: they differ by $difference."
}

check_icons() {
    echo "The icons"
    local pixels
    for pixels in "${icon_sizes[@]}"; do
        check_icon "$unpacked/usr/share/icons/hicolor/${pixels}x$pixels/apps/$application.png" \
            "$pixels"
    done
    check_scalable_icon "$unpacked/usr/share/icons/hicolor/scalable/apps/$application.svg"
}

lint_manual_page() {
    MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$1" >/dev/null
    zcat "$1" | mandoc -T lint
}

check_manual_pages() {
    echo "The manual pages"
    local page
    for page in "$unpacked"/usr/share/man/man1/*.1.gz; do
        expect_silence lint_manual_page "$page"
    done
}

# debian/README.source answers the remarks of the tag that is suppressed.
check_debian_rules() {
    echo "The rules of Debian"
    lintian --allow-root --display-info --pedantic --fail-on error,warning,info,pedantic \
        --suppress-tags spelling-error-in-binary "$made"/*.dsc "$made"/*.deb
}

check_files() {
    check_file_lists
    check_versions "$1"
    check_desktop_entry
    check_appstream_data
    check_icons
    check_manual_pages
    check_debian_rules
}
