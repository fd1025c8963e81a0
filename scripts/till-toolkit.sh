# To be sourced: the toolkit's Core and Xml for the static print program, built once from Debian's source package into the
# cache folder $XDG_CACHE_HOME/zelmora (~/.cache/zelmora):
#
#   apt/             apt's lists, the script's own
#   source/          the source package that came last, as it was downloaded
#   toolkit-KEY/     the toolkit that was built, and source.dsc, of which; the key is made of that file, which has the sums of
#                    all parts of the source, of how it is configured, and of the compiler
#   building.XXXXXX  where something is being made; renamed when it is whole

till_cache=$(realpath --canonicalize-missing "${XDG_CACHE_HOME:-$HOME/.cache}")/zelmora
till_package=qtbase-opensource-src
till_keyring=/usr/share/keyrings/debian-archive-keyring.gpg

# Of the toolkit's features: what neither the print program nor the libraries need. Without a compiled-in search for
# plug-ins ("library") and converters (iconv, ICU) nothing is ever loaded.
till_features_off=(gui widgets network sql testlib concurrent dbus
    animation easingcurve gestures statemachine itemmodel proxymodel sortfilterproxymodel identityproxymodel
    transposeproxymodel concatenatetablesproxymodel stringlistmodel
    jalalicalendar hijricalendar islamiccivilcalendar timezone datetimeparser
    commandlineparser
    sharedmemory systemsemaphore settings filesystemwatcher library dlopen
    mimetype regularexpression topleveldomain sha3-fast zstd journald syslog relocatable)
# No path of this machine: the prefix is where nothing is looked for. Xml with exceptions: link-time optimisation takes it at
# its word that it throws none, and drops the print program's way out when the memory is full.
till_configure=(-opensource -confirm-license -static -release -ltcg -prefix /usr
    -nomake examples -nomake tests -nomake tools -no-compile-examples
    -qt-zlib -qt-doubleconversion -no-pcre -no-icu -no-iconv -no-glib -no-opengl -no-openssl
    "${till_features_off[@]/#/-no-feature-}" QMAKE_CXXFLAGS_EXCEPTIONS_OFF=-fexceptions)

till_say() {
    printf 'build-till: %s\n' "$*" >&2
}

till_fail() {
    till_say "$*"
    exit 1
}

# till_step WHAT LOG COMMAND...: runs the command with all that it says in LOG, and says how long it took.
till_step() {
    local what=$1 log=$2 start=$SECONDS
    shift 2
    till_say "$what ..."
    if ! "$@" &>"$log"; then
        tail -n 30 "$log" >&2
        till_fail "$what: that failed. The lines above are the end of what it said. Nothing was put into dist/."
    fi
    till_say "$what: $((SECONDS - start)) s"
}

# till_room FOLDER MEGABYTES REMEDY: fails where the disk has less.
till_room() {
    local free
    free=$(df --output=avail --block-size=1M "$1" | tail -n 1 | tr --delete ' ')
    ((free >= $2)) || till_fail "The disk of $1 has $free MB left, and $2 are needed. $3"
}

# What to do where Debian cannot be reached.
till_remedy() {
    local dsc
    printf '%s' "Without a network: scripts/build-till --source FILE.dsc, with Debian's source package $till_package."
    for dsc in "$till_cache"/source/*.dsc; do
        [[ ! -f $dsc ]] || printf '%s' " The one that came last is $dsc"
    done
}

# apt with lists of our own, which the machine's apt never sees, and nothing unsigned, however the machine is set up.
till_apt() {
    local command=$1
    shift
    "$command" -o Dir::Etc::SourceList="$till_cache/apt/sources.list" -o Dir::Etc::SourceParts=/dev/null \
        -o Dir::State::Lists="$till_cache/apt/lists" -o Dir::Cache="$till_cache/apt/cache" \
        -o APT::Sandbox::User="$(id --user --name)" -o APT::Get::AllowUnauthenticated=false \
        -o Acquire::AllowInsecureRepositories=false -o Acquire::AllowWeakRepositories=false \
        -o Acquire::AllowDowngradeToInsecureRepositories=false "$@"
}

# The lines of a sources.list for what may be the source packages of the release $1, its updates and its security updates,
# from where this machine's apt has its packages, each held to Debian's own keys. A machine may say "stable" for the name.
till_candidates() {
    apt-get update --print-uris | sed --quiet --regexp-extended \
        "s#^'(.*)/dists/(($1|(old)*stable)(-updates|-security)?)/InRelease' .*#deb-src [signed-by=$till_keyring] \1 \2 main#p" |
        sort --unique
}

# till_suite LINE: reads the lists of that line alone; tells of which suite they are, by the name that is signed.
till_suite() {
    printf '%s\n' "$1" >"$till_cache/apt/sources.list"
    till_apt apt-get update --error-on=any --quiet -o APT::Get::List-Cleanup=false >/dev/null &&
        till_apt apt-get indextargets --format '$(CODENAME)' 'Created-By: Sources'
}

# Makes sources.list of the candidates that are Debian's. Others have suites of the same name, and not Debian's keys.
till_sources_list() {
    local codename suite candidate candidates lines=() suites=' '
    codename=$(. /etc/os-release && printf %s "${VERSION_CODENAME-}")
    candidates=$(till_candidates "$codename") || till_fail "This machine's apt does not say where its packages come from."
    [[ $candidates ]] || till_fail "This machine's apt knows no packages of its own release. $(till_remedy)"
    while read -r candidate; do
        if suite=$(till_suite "$candidate" </dev/null) && [[ $suite =~ ^$codename(-updates|-security)?$ ]]; then
            lines+=("$candidate")
            suites+="$suite "
        else
            till_say "Left out, as it cannot be read or Debian's keys have not signed it for $codename: ${candidate#*] }"
        fi
    done <<<"$candidates"
    [[ $suites == *" $codename "* ]] || till_fail "Debian's lists of source packages cannot be read. $(till_remedy)"
    for suite in "$codename"-{updates,security}; do
        [[ $suites == *" $suite "* ]] || till_say "This machine's apt has no list of $suite that can be used: it is left out."
    done
    printf '%s\n' "${lines[@]}" >"$till_cache/apt/sources.list"
}

# Asks Debian for the source package's version; leaves its file names in till_dsc.
till_ask_debian() {
    [[ -r $till_keyring ]] || till_fail "There is no $till_keyring, by which Debian's index is verified: install debian-archive-keyring."
    mkdir -p "$till_cache"/apt/{lists/partial,cache/archives/partial} "$till_cache/source"
    till_sources_list
    till_dsc=$(till_apt apt-get source --print-uris --only-source "$till_package" |
        sed --quiet "s|^'[^']*' \([^ ]*\.dsc\) .*|\1|p") ||
        till_fail "Debian's lists have no source package $till_package. $(till_remedy)"
    till_dsc=$till_cache/source/$till_dsc
}

# Downloads the source package that Debian has; apt verifies it.
till_download() {
    local part
    part=$(mktemp --directory "$till_cache/building.XXXXXX")
    (cd "$part" && till_apt apt-get source --quiet --download-only --only-source "$till_package") ||
        till_fail "The source package cannot be downloaded. $(till_remedy)"
    rm -rf "$till_cache/source"
    mv "$part" "$till_cache/source"
}

# till_version FILE.dsc: the version of the source package.
till_version() {
    sed --quiet 's/^Version: //p' "$1"
}

# till_key FILE.dsc: of what the toolkit would be built with.
till_key() {
    local version
    version=$(till_version "$1")
    printf '%s-%s\n' "${version##*:}" "$({
        sha256sum <"$1"
        printf '%s\n' "${till_configure[@]}" "$(declare -f till_make till_flags)"
        g++ --version | head -n 1
    } | sha256sum | cut --characters=1-12)"
}

# till_flags FOLDER: what the compiler is told, so that a path of the folder that is built in is nowhere in the result.
till_flags() {
    printf '%s' "-ffile-prefix-map=$1/="
}

# till_make FOLDER: configures and builds in FOLDER, which has source/, and installs into FOLDER/toolkit.
till_make() {
    local folder=$1 part
    mkdir "$folder/build"
    cd "$folder/build"
    MAKEFLAGS=-j$(nproc) ../source/configure "${till_configure[@]}" \
        QMAKE_CFLAGS+="$(till_flags "$folder")" QMAKE_CXXFLAGS+="$(till_flags "$folder")"
    make sub-src-qmake_all
    make -j"$(nproc)" -C src sub-moc sub-rcc sub-corelib sub-xml
    make install_mkspecs INSTALL_ROOT="$folder/installed"
    for part in moc rcc corelib xml; do
        make -C src "sub-$part-install_subtargets" INSTALL_ROOT="$folder/installed"
    done
    mv "$folder/installed/usr" "$folder/toolkit"
    cp bin/qmake "$folder/toolkit/bin/"
    cp ../source/debian/copyright "$folder/toolkit/"
}

# till_build FILE.dsc TARGET: the toolkit of that source package in the folder TARGET, which is made aside.
till_build() {
    local folder
    till_room "$till_cache" 1500 "Make room, or name another folder in XDG_CACHE_HOME."
    folder=$(mktemp --directory "$till_cache/building.XXXXXX")
    till_step "Unpacking the toolkit's source, with all of Debian's patches" "$till_cache/log" \
        dpkg-source --extract "$1" "$folder/source"
    till_step "Building the toolkit's Core and Xml; once, and it takes minutes" "$till_cache/log" \
        bash -euo pipefail -c "$(declare -p till_configure; declare -f till_make till_flags); till_make '$folder'"
    cp "$1" "$folder/toolkit/source.dsc"
    mv "$folder/toolkit" "$2"
    rm -rf "$folder"
}

# till_toolkit [FILE.dsc]: leaves the folder of the toolkit in till_prefix, built if need be; without a file, of the source
# package that Debian has today.
till_toolkit() {
    local dsc=${1-} lock
    [[ ${till_cache//[A-Za-z0-9\/._+@-]/} == '' ]] ||
        till_fail "The toolkit cannot be built in $till_cache, which has other characters than a-z, A-Z, 0-9 and / . _ + @ -:" \
            "name another folder in XDG_CACHE_HOME."
    mkdir -p "$till_cache" || till_fail "Name a folder that you may write in XDG_CACHE_HOME."
    exec {lock}>"$till_cache/lock"
    flock --nonblock "$lock" || {
        till_say "Another build-till is at work in $till_cache; waiting for it."
        flock "$lock"
    }
    rm -rf "$till_cache"/building.* # of a build that was killed
    trap 'rm -rf "$till_cache"/building.*' EXIT
    if [[ ! $dsc ]]; then
        till_ask_debian
        dsc=$till_dsc
        [[ -f $dsc ]] || till_download
    fi
    grep --quiet "^Source: $till_package\$" "$dsc" || till_fail "$dsc is not the source package $till_package."
    till_prefix=$till_cache/toolkit-$(till_key "$dsc")
    [[ -d $till_prefix ]] || till_build "$dsc" "$till_prefix"
    trap - EXIT
    exec {lock}>&-
}
