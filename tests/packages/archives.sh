# To be sourced: packages as apt-get and debootstrap find them.

# debian_archives: "URL SUITE COMPONENT", a line for each of Debian's archives that this machine installs from.
debian_archives() {
    apt-get indextargets --format '$(ORIGIN) $(REPO_URI) $(CODENAME) $(COMPONENT)' 'Identifier: Packages' |
        sed --quiet 's/^Debian //p' | sort --unique
}

# packages_in FOLDER: the names of the packages in the folder's one .changes file, without those of debug symbols.
packages_in() {
    sed --quiet '/^Checksums-Sha256:/,/^Files:/s/.* \([^_ ]*\)_[^ ]*\.deb$/\1/p' "$1"/*.changes |
        grep --invert-match -e '-dbgsym$' | sort
}

# deb_of FOLDER PACKAGE: the file of that package.
deb_of() {
    compgen -G "$1/$2_*.deb" || fail "There is no package $2 in $1."
}

# make_archive FROM TO: the packages of the folder FROM as an archive that apt-get can use.
make_archive() {
    local package
    rm -rf "$2"
    mkdir -p "$2"
    for package in $(packages_in "$1"); do
        cp "$(deb_of "$1" "$package")" "$2"
    done
    (cd "$2" && apt-ftparchive packages . >Packages)
}
