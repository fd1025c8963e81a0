# To be sourced: each package in a system of its own that has nothing else of ours but what apt-get brings along.

# write_settings: what a new user takes from the examples, in the home of $root's user till.
write_settings() {
    mkdir -p "$root/home/till/.zelmora/conf"
    dpkg-deb --fsys-tarfile "$(deb_of "$new" zelmora-doc)" |
        tar --extract --to-stdout "./$installed_settings" >"$root/home/till/.zelmora/conf/zelmora.conf"
}

# as_till COMMAND...: runs the command in $root, in the home with these settings.
as_till() {
    in_root env HOME=/home/till "$@"
}

# print_examples FOLDER PRINT...: prints the thirteen jobs to FOLDER, each by PRINT... JOB SCRIPT.
print_examples() {
    local job
    for job in "$examples"/*.xml; do
        "${@:2}" "$job" "$1/$(basename "$job" .xml).txt"
    done
}

# print_there JOB SCRIPT: prints a job of this machine in $root.
print_there() {
    cp "$1" "$root/tmp/job.xml"
    as_till zelmora-print /tmp/job.xml /tmp/script.txt
    mv "$root/tmp/script.txt" "$2"
}

# print_here JOB SCRIPT: prints it by the tree's own program, with its own catalogue.
print_here() {
    env -i PATH=/usr/bin:/bin HOME="$work/scripts/home" LC_ALL=C.UTF-8 "$build_of_tree/bin/zelmora-print" "$1" "$2"
}

# expect_examples: the installed program prints what the tree's own does.
expect_examples() {
    local scripts=$work/scripts
    rm -rf "$scripts"
    mkdir -p "$scripts/here" "$scripts/there" "$scripts/home/.zelmora/conf"
    sed "s,/usr/share/zelmora/translations/,$build_of_tree/translations/," \
        "$root/home/till/.zelmora/conf/zelmora.conf" >"$scripts/home/.zelmora/conf/zelmora.conf"
    print_examples "$scripts/here" print_here
    print_examples "$scripts/there" print_there
    expect_equal "Thirteen examples are printed" 13 "$(find "$scripts/there" -name '*.txt' -size +0 | wc -l)"
    expect "The examples are in Italian" grep --quiet SOMMA "$scripts/there/receipt.txt"
    expect "They are the same bytes as by the tree's own program" \
        diff --recursive --text "$scripts/here" "$scripts/there"
}

# expect_loads LIBRARY: the loader finds all that the library needs, and each name.
expect_loads() {
    local said
    said=$(in_root sh -c "LD_BIND_NOW=1 ldd -r /usr/lib/*/$1" 2>&1) || fail "$1: $said"
    expect_equal "$1 finds what it is linked with" "" "$(grep -e 'not found' -e 'undefined' <<<"$said" || true)"
}

# expect_without_screen PACKAGE: it brings nothing that draws or asks a database; with widgets it would be a hundred more.
expect_without_screen() {
    local unwanted='^lib(qt5(gui|widgets|printsupport|sql)|x11|xcb|gl1|egl1|pq5)|^fontconfig' brought count
    brought=$(would_install "$1")
    count=$(wc --lines <<<"$brought")
    expect_equal "$1 brings nothing of windows or databases" "" \
        "$(grep --extended-regexp "$unwanted" <<<"$brought" || true)"
    expect "$1 brings at most 25 packages: $count" test "$count" -le 25
}

alone_zelmora-print() {
    expect_examples
}

alone_zelmora-tools() {
    cp "$examples/receipt.xml" "$root/tmp/job.xml"
    expect "zelmora-check finds nothing wrong with an example" as_till zelmora-check /tmp/job.xml
    expect "zelmora-paper draws it" as_till zelmora-paper /tmp/job.xml
    expect "zelmora-paper draws it as PDF" as_till zelmora-paper -o /tmp/job.pdf /tmp/job.xml
    expect_equal "zelmora-config knows the settings" "zelmora_it.qm" \
        "$(as_till zelmora-config get zelmora.language.file)"
}

alone_zelmora-settings() {
    expect "zelmora-settings starts without a screen" as_till zelmora-settings --help
}

alone_libzelmora1() {
    expect_loads libzelmora.so.1
}

alone_libzelmora-db1() {
    expect_loads libzelmora-db.so.1
    expect "The toolkit's driver for PostgreSQL is there" sh -c "ls $root/usr/lib/*/qt5/plugins/sqldrivers/libqsqlpsql.so"
}

alone_libzelmora-widgets1() {
    expect_loads libzelmora-widgets.so.1
}

alone_libzelmora-dev() {
    apt_get install cmake g++ make pkg-config
    cp --recursive "$examples" "$root/srv/examples"
    expect "The suite program is built" build_program srv/examples
    expect "pkg-config finds the libraries" in_root pkg-config --print-errors --libs zelmora zelmora-db zelmora-widgets
}

alone_zelmora-doc() {
    expect_equal "No link between pages and examples leads nowhere" "" \
        "$(find "$root/usr/share/doc/zelmora" "$root/usr/share/zelmora" -xtype l)"
}

# check_alone PACKAGE: installs it in a system of its own.
check_alone() {
    begin_root
    offer "$work/new"
    apt_get install "$1"
    passed "$1 is installed alone"
    write_settings
    "alone_$1"
    end_root
}

# check_all_alone: first what a till needs is counted, then each is installed.
check_all_alone() {
    local package
    begin_root
    offer "$work/new"
    expect_without_screen zelmora-print
    expect_without_screen libzelmora1
    end_root
    for package in zelmora-print zelmora-tools zelmora-settings libzelmora1 libzelmora-db1 libzelmora-widgets1 \
        libzelmora-dev zelmora-doc; do
        check_alone "$package"
    done
}
