# To be sourced: a minimal Debian in a folder, and what is done in it. Needs expect.sh and archives.sh, and a mount
# namespace of its own: what is mounted goes with the process.
# Used here: $work, the folder for all that is made; $root, the system that the functions are about.

# require_chroot: ends the tests where nobody may do what they do.
require_chroot() {
    [[ $EUID == 0 ]] || fail "Only root may make a system and chroot into it. Nothing has been tested."
    unshare --mount --pid --fork chroot / true ||
        fail "Here root may not mount or chroot (a container without CAP_SYS_ADMIN?). Nothing has been tested."
}

# make_base: $work/base, the release of this machine with nothing but what a Debian cannot do without. Kept for the next
# run, when it is whole.
make_base() {
    local codename url
    codename=$(source /etc/os-release && echo "$VERSION_CODENAME")
    url=$(debian_archives | awk -v codename="$codename" '$2 == codename && $3 == "main" { print $1; exit }')
    [[ $url ]] || fail "This machine has no list of Debian's packages: apt-get update makes it."
    mkdir -p "$work/debs"
    rm -rf --one-file-system "$work/base.part"
    debootstrap --variant=minbase --force-check-gpg --keyring=/usr/share/keyrings/debian-archive-keyring.gpg \
        --cache-dir="$work/debs" "$codename" "$work/base.part" "$url" >"$work/debootstrap.log" ||
        fail "debootstrap: $(tail "$work/debootstrap.log")"
    debian_archives | sed 's/^/deb /' >"$work/base.part/etc/apt/sources.list"
    echo 'Acquire::Languages "none";' >"$work/base.part/etc/apt/apt.conf.d/scratch"
    echo force-unsafe-io >"$work/base.part/etc/dpkg/dpkg.cfg.d/scratch" # it is thrown away: nothing need be on the disk
    mv "$work/base.part" "$work/base"
}

# begin_root: $root, the minimal system anew; packages that it loads are kept for the next.
begin_root() {
    cp --archive --reflink=auto "$work/base" "$root"
    mkdir -p "$root/srv/zelmora"
    mount -t proc proc "$root/proc"
    mount --bind "$work/debs" "$root/var/cache/apt/archives"
}

end_root() {
    umount "$root/var/cache/apt/archives" "$root/proc"
    rm -rf --one-file-system "$root"
}

# in_root COMMAND...: runs the command there as root, with an environment of its own.
in_root() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        QT_QPA_PLATFORM=offscreen chroot "$root" "$@" </dev/null
}

# update_base: what Debian has today, once for all systems that are copied. So a later upgrade is ours alone.
update_base() {
    local root=$work/base
    apt_get update
    apt_get upgrade
}

# offer ARCHIVE: the packages of that archive are there for apt-get, and no others of ours.
offer() {
    local list=sources.list.d/zelmora.list
    rm -rf "$root/srv/zelmora"
    cp --recursive "$1" "$root/srv/zelmora"
    echo "deb [trusted=yes] file:/srv/zelmora ./" >"$root/etc/apt/$list"
    apt_get update -o Dir::Etc::SourceList="$list" -o Dir::Etc::SourceParts=- -o APT::Get::List-Cleanup=false
}

# apt_get ARGUMENT...: runs apt-get there, silently unless it fails. No package is taken because one is recommended.
apt_get() {
    in_root apt-get --quiet --yes --no-install-recommends -o APT::Keep-Downloaded-Packages=true "$@" \
        >"$work/apt-get.log" 2>&1 || fail "apt-get $*"$'\n'"$(tail --lines=40 "$work/apt-get.log")"
}

# would_install PACKAGE...: the packages that apt-get has to install, sorted.
would_install() {
    in_root apt-get --simulate --no-install-recommends -o APT::Get::Upgrade-By-Source-Package=false install "$@" |
        sed --quiet 's/^Inst \([^ ]*\).*/\1/p' | sort
}
