# To be sourced: what the packages hold, as files; nothing is installed for it.

# run_lintian FOLDER: Debian's checks, as an ordinary user, as they want to be run.
run_lintian() {
    local folder status=0
    folder=$(mktemp --directory)
    cp "$1"/*_* "$folder"
    chmod --recursive a+rX "$folder"
    setpriv --reuid=nobody --regid=nogroup --clear-groups env HOME=/nonexistent \
        lintian --fail-on error,warning --tag-display-limit 0 "$folder"/*.changes || status=$?
    rm -rf "$folder"
    return "$status"
}

# files_of FOLDER PACKAGE: the paths of its files and links, without what is Debian's in every package.
files_of() {
    dpkg-deb --fsys-tarfile "$(deb_of "$1" "$2")" | tar --list | sed --quiet 's/^\.\(.*[^/]\)$/\1/p' |
        grep --invert-match --extended-regexp "^/usr/share/(doc/$2/(changelog\.gz|copyright)|lintian/)" | sort
}

# files_of_components COMPONENT...: what `cmake --install` puts in place, as files_of would show it: packages have their
# pages compressed.
files_of_components() {
    local component stage=$work/stage
    rm -rf "$stage"
    for component in "$@"; do
        DESTDIR=$stage cmake --install "$build_of_packages" --component "$component" >/dev/null
    done
    (cd "$stage" && find . ! -type d -printf '/%P\n') | sed 's,^\(/usr/share/man/.*\),\1.gz,' | sort
}

# documented_packages: those of the table in the documents.
documented_packages() {
    sed --quiet 's/^| `\([a-z0-9-]*\)` |.*/\1/p' docs/packages.md | sort
}

# check_components FOLDER: a package is a component of the installation; that of the libraries is three.
check_components() {
    local libraries=(libzelmora1 libzelmora-db1 libzelmora-widgets1) component package
    local -A packages=([print]=zelmora-print [tools]=zelmora-tools [settings]=zelmora-settings
        [development]=libzelmora-dev [documentation]=zelmora-doc)
    for component in "${!packages[@]}"; do
        expect_equal "${packages[$component]} is the component $component" \
            "$(files_of_components "$component")" "$(files_of "$1" "${packages[$component]}")"
    done
    expect_equal "${libraries[*]} are the component libraries" "$(files_of_components libraries)" \
        "$(for package in "${libraries[@]}"; do files_of "$1" "$package"; done | sort)"
}

# check_libraries FOLDER: each package of a library has its one library, by the name that programs ask for.
check_libraries() {
    local name
    for name in zelmora zelmora-db zelmora-widgets; do
        expect_equal "lib${name}1 has lib$name.so.1 and no other" "lib$name.so.1" \
            "$(files_of "$1" "lib${name}1" | grep --only-matching 'lib[^/]*\.so\.1$')"
    done
}

# check_documents FOLDER: the pages link to each other by name.
check_documents() {
    expect_equal "No page, picture or example of zelmora-doc is compressed" "" \
        "$(files_of "$1" zelmora-doc | grep '\.gz$' || true)"
}

# linked_packages FOLDER: Debian's packages that our programs and libraries need, each once. The toolkit's windows come in
# two ways, of which one is named.
linked_packages() {
    local package
    for package in $(packages_in "$1" | grep --invert-match -e '-dev$' -e '-doc$'); do
        dpkg-deb --field "$(deb_of "$1" "$package")" Depends
    done | tr ',|' '\n\n' | sed 's/^ *\([^ ]*\).*/\1/' | grep --invert-match -e zelmora -e '-gles$' | sort --unique
}

# check_licences FOLDER: nothing is linked whose licence is not told.
check_licences() {
    local package words
    words=$(tr --squeeze-repeats ', ' '\n' <debian/copyright)
    for package in $(linked_packages "$1"); do
        expect "debian/copyright has the licence of $package" \
            grep --quiet --line-regexp --fixed-strings "$package" <<<"$words"
    done
}

check_contents() {
    expect_equal "The packages are those of the documents" "$(documented_packages)" "$(packages_in "$1")"
    check_components "$1"
    check_libraries "$1"
    check_documents "$1"
    check_licences "$1"
    expect "lintian has no error and no warning" run_lintian "$1"
}
