# To be sourced: an archive of packages as Debian's is.

package=qtbase-opensource-src # the one that is in it

# sums COMMAND FILE...: lines of a sum, a size and a name.
sums() {
    command=$1
    shift
    for file in "$@"; do
        echo " $("$command" <"$file" | cut -d ' ' -f 1) $(stat -c %s "$file") ${file#./}"
    done
}

# source_package: one that has nothing in it.
source_package() {
    mkdir -p tree/debian
    tar -czf ${package}_5.15.99.tar.gz tree
    cat >${package}_5.15.99.dsc <<DSC
Format: 3.0 (native)
Source: $package
Binary: none
Architecture: any
Version: 5.15.99
Maintainer: Zelmora print <zelmora-print@localhost>
Checksums-Sha256:
$(sums sha256sum $package*.tar.gz)
Files:
$(sums md5sum $package*.tar.gz)
DSC
}

# index: the list of it.
index() {
    cat <<INDEX
Package: $package
Version: 5.15.99
Architecture: any
Format: 3.0 (native)
Directory: .
Files:
$(sums md5sum $package*.*)
Checksums-Sha256:
$(sums sha256sum $package*.*)
INDEX
}

# release SUITE CODENAME: what is signed.
release() {
    cat <<RELEASE
Suite: $1
Codename: $2
Components: main
Date: $(LC_ALL=C date -Ru)
SHA256:
$(sums sha256sum main/source/Sources)
RELEASE
}

# archive FOLDER SUITE CODENAME: the archive in that folder, signed by a key of its own, key.gpg.
archive() (
    set -e
    mkdir -p "$1/dists/$2/main/source"
    mkdir -m 700 "$1/keys"
    cd "$1"
    export GNUPGHOME="$PWD/keys"
    source_package
    index >"dists/$2/main/source/Sources"
    gpg --quiet --batch --passphrase '' --quick-generate-key archive ed25519 2>/dev/null
    gpg --export >key.gpg
    cd "dists/$2"
    release "$2" "$3" | gpg --quiet --clearsign >InRelease
    gpgconf --kill all
)
