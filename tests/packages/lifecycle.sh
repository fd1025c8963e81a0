# To be sourced: all packages together in one system: installed as an older version, upgraded, used, removed, purged.

# all_files: each file and folder of $root with its kind, rights and owner. Left out is what apt-get, dpkg and man keep of
# their own work.
all_files() {
    (cd "$root" && find . -xdev \
        \( -path ./proc -o -path ./tmp -o -path ./srv/zelmora -o -path ./var/cache/apt -o -path ./var/cache/man -o \
        -path ./var/lib/apt -o -path ./var/log -o -path './var/lib/dpkg/*-old' \) -prune -o \
        -printf '%p %y %m %u:%g %l\n') | LC_ALL=C sort
}

# all_bytes FOLDER...: what the files of these folders of $root hold.
all_bytes() {
    (cd "$root" && find "$@" -type f -exec sha256sum {} +) | LC_ALL=C sort --key=2
}

# all_homes: what the files in homes hold, and since when.
all_homes() {
    all_bytes home root
    (cd "$root" && find home root -printf '%p %T@\n') | LC_ALL=C sort
}

# versions: the versions of our packages, each once.
versions() {
    in_root dpkg-query --show --showformat='${Version}\n' "${packages[@]}" | sort --unique
}

# install_needs: all that our packages need of Debian's, so that what is ours can be told from it; what a developer has,
# what shows manuals, and shells.
install_needs() {
    local needs
    mapfile -t needs < <(would_install "${packages[@]}" cmake g++ make pkg-config man-db \
        bash-completion zsh fish |
        grep --invert-match --line-regexp --fixed-strings "$(printf '%s\n' "${packages[@]}")")
    apt_get install "${needs[@]}"
}

# check_upgrade: from the older version to the new one, by apt-get alone.
check_upgrade() {
    offer "$work/older"
    apt_get install "${packages[@]}"
    expect_equal "The older version is installed" "$older_version" "$(versions)"
    offer "$work/new"
    expect_equal "With newer tools comes their print program, and with that its editor" \
        $'zelmora-print\nzelmora-settings\nzelmora-tools' "$(would_install zelmora-tools)"
    apt_get upgrade
    expect_equal "The new version has taken its place" "$new_version" "$(versions)"
    expect_equal "Each file is as its package has it" "" "$(in_root dpkg --verify "${packages[@]}")"
}

# build_program FOLDER: the suite program of the examples, which lie there in $root, with nothing but the packages.
build_program() {
    in_root sh -ec "cp -r /$1/suite-program /tmp
        cmake -S /tmp/suite-program -B /tmp/build -DCMAKE_BUILD_TYPE=Release
        cmake --build /tmp/build"
}

# check_development: without a server the program says so, and the log that the driver has tried.
check_development() {
    expect "The suite program is built against libzelmora-dev" build_program "$installed_examples"
    mkdir -p "$root/var/log/zelmora"
    expect_equal "It runs, and finds no server" "The database cannot be opened. The log says why." \
        "$(as_till /tmp/build/suite-program 2>&1 || true)"
    expect "The toolkit's driver was loaded" grep --quiet 'QPSQL: Unable to connect' "$root/var/log/zelmora/suite.log"
    rm -r "$root/var/log/zelmora"
    expect "pkg-config finds the libraries" in_root pkg-config --print-errors --libs zelmora zelmora-db zelmora-widgets
}

# in_tmp COMMAND...: runs the command in $root, in a home that may be written to.
in_tmp() {
    in_root env HOME=/tmp "$@"
}

# completes SHELL PROGRAM: the shell, which is asked for nothing else, knows how to complete the program's arguments.
completes() {
    case $1 in
    bash) in_tmp bash -c ". /usr/share/bash-completion/bash_completion; _completion_loader $2; complete -p $2" ;;
    zsh) in_tmp zsh -fc "autoload -U compinit; compinit -D; [[ -n \$_comps[$2] ]]" ;;
    fish) in_tmp fish -c "complete --do-complete='$2 ' >/dev/null; complete --command $2 | string match --quiet '*'" ;;
    esac
}

# check_places: what shells, man and a desktop look for is where they look.
check_places() {
    local name shell file
    for name in zelmora-{print,check,config,paper,settings}.1 zelmora.conf.5 zelmora-job.5; do
        expect "man finds $name" in_root man --where "${name##*.}" "${name%.*}"
    done
    for name in zelmora-{print,check,config,paper,settings}; do
        for shell in bash zsh fish; do
            expect "$shell completes $name" completes "$shell" "$name"
        done
    done
    for file in applications/zelmora-settings.desktop icons/hicolor/scalable/apps/zelmora-settings.svg \
        icons/hicolor/48x48/apps/zelmora-settings.png; do
        expect "A desktop finds $file" test -s "$root/usr/share/$file"
    done
}

# check_removal NAME COMMAND...: what was there before is there again, and nothing else; the homes are as they were all the
# time.
check_removal() {
    expect "All packages are taken away: $1" "${@:2}"
    expect_equal "After $1 no file and no folder of ours is left" "$files_before" "$(all_files)"
    expect_equal "After $1 the settings of the system are as before" "$etc_before" "$(all_bytes etc)"
    expect_equal "After $1 homes are untouched" "$homes_before" "$(all_homes)"
}

check_lifecycle() {
    local packages files_before etc_before homes_before
    mapfile -t packages < <(packages_in "$new")
    begin_root
    offer "$work/new"
    install_needs
    write_settings
    cp --recursive "$root/home/till/.zelmora" "$root/root"
    files_before=$(all_files)
    etc_before=$(all_bytes etc)
    homes_before=$(all_homes)

    check_upgrade
    check_places
    expect_examples
    check_development
    check_removal remove apt_get remove "${packages[@]}"
    check_removal purge type_as_root "$(page_lines "Upgrade and remove")"
    end_root
}
