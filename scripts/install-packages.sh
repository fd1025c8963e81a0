# To be sourced: what the scripts need of Debian 12, and its installation.

# To build: compiler, build tools, the toolkit, the translation compiler; the toolkit's own texts in other languages, for
# the buttons of boxes; for the pictures of paper a font of fixed width, and one that has pictures of control characters.
BUILD_PACKAGES=(g++ cmake ninja-build qtbase5-dev qttools5-dev-tools qttranslations5-l10n fonts-dejavu-core
    fonts-freefont-ttf)
# What makes the man pages; without it a build has all but those.
MAN_PACKAGES=(pandoc)
# To test as well: the definitions of the 8-bit locale that the tests build for themselves; a PostgreSQL server, its tools
# and the toolkit's driver for it; xmllint, which tells what the schema of jobs accepts; what traces the files that a program
# opens; pkg-config, for a program that is built against what is installed; what shows man pages; two shells beside bash;
# what a desktop asks of its entries, and another hand that draws pictures; what signs an archive of packages.
TEST_PACKAGES=("${BUILD_PACKAGES[@]}" "${MAN_PACKAGES[@]}" locales postgresql postgresql-client libqt5sql5-psql
    libxml2-utils strace pkgconf man-db zsh fish desktop-file-utils appstream librsvg2-bin
    gpg gpg-agent)
# To build with Qt 6 besides: the toolkit, its module for what comes from Qt 5, its translation compiler, its own texts.
QT6_BUILD_PACKAGES=(qt6-base-dev qt6-5compat-dev qt6-l10n-tools qt6-translations-l10n)
# To test that as well: its driver for PostgreSQL.
QT6_TEST_PACKAGES=("${QT6_BUILD_PACKAGES[@]}" libqt6sql6-psql)
# To build the static print program of a till: what takes a source package of Debian's and builds the toolkit of it, Debian's
# keys for it, the translation compiler.
TILL_PACKAGES=(g++ make cmake ninja-build qttools5-dev-tools dpkg-dev patch xz-utils perl debian-archive-keyring)
# To measure as well: what the print program is measured against, git for its earlier self, and time(1) for the memory.
BENCH_PACKAGES=("${BUILD_PACKAGES[@]}" git xsltproc python3 time)
# To fuzz: the compiler that has libFuzzer, its sanitizers, and what finds names and lines for their reports.
FUZZ_PACKAGES=("${BUILD_PACKAGES[@]}" clang libclang-rt-14-dev llvm)
# To make Debian packages: Debian's tools for that, what they take for granted, and git, which knows what is of the tree.
PACKAGE_PACKAGES=("${BUILD_PACKAGES[@]}" "${MAN_PACKAGES[@]}" build-essential debhelper dpkg-dev git)
# To test them as well: Debian's own checks of a package, a bare system to install them in, an index of them for apt-get.
PACKAGE_TEST_PACKAGES=("${PACKAGE_PACKAGES[@]}" lintian debootstrap apt-utils)
# To lay out the sources.
FORMAT_PACKAGES=(clang-format)

# To take the pictures in the documents: a screen without a screen, a window manager and a hand for it, a camera.
SCREENSHOT_PACKAGES=("${BUILD_PACKAGES[@]}" xvfb openbox xdotool imagemagick)

# install_packages PACKAGE...: installs those that are missing, as root or through sudo.
install_packages() {
    local package missing=() as_root=()
    for package in "$@"; do
        [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
            missing+=("$package")
    done
    [[ ${#missing[@]} -gt 0 ]] || return 0

    echo "Installing: ${missing[*]}" >&2
    if [[ $EUID -ne 0 ]]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing, and there is no sudo to install them. As root: apt-get install ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update --quiet >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install --quiet --yes --no-install-recommends "${missing[@]}" >&2
}
