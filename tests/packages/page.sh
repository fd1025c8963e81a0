# To be sourced: what docs/packages.md tells a user to type, typed in a minimal system.

# page_lines HEADING: the commands below that heading, each on a line, without sudo and what stands behind "#".
page_lines() {
    awk -v heading="## $1" '
        /^## / { below = $0 == heading }
        /^```/ { inside = below && $0 == "```sh"; next }
        inside { sub(/ *#.*/, ""); sub(/^sudo /, ""); print }' docs/packages.md
}

# type_as_root LINES: in the folder of the packages. apt-get asks nothing, and takes nothing because it is recommended.
type_as_root() {
    in_root bash -ec 'apt-get() {
            command apt-get --quiet --yes --no-install-recommends -o APT::Keep-Downloaded-Packages=true "$@"
        }
        cd /srv/zelmora
        eval "$1"' bash "$1"
}

# type_as_till LINES
type_as_till() {
    as_till bash -ec "$1"
}

# check_settings: where jobs are printed the labels are Italian, with the settings of the examples and with new ones.
check_settings() {
    local lines
    lines=$(page_lines "Install them")
    mkdir -p "$root/home/till"
    expect "There are settings to begin with" type_as_till "$(grep --extended-regexp '^(mkdir|cp)' <<<"$lines")"
    [[ ! -e $root/usr/bin/zelmora-print ]] || expect_examples
    [[ -e $root/usr/bin/zelmora-config ]] || return 0
    rm -r "$root/home/till/.zelmora"
    expect "New settings are told of the catalogue" type_as_till "$(grep '^zelmora-config' <<<"$lines")"
    print_there "$examples/receipt.xml" "$work/receipt.txt"
    expect "The receipt is in Italian" grep --quiet SOMMA "$work/receipt.txt"
}

# check_page: each of the ways to install that the page names, and how all of it is taken away.
check_page() {
    local line
    while read -r line; do
        begin_root
        cp --recursive "$work/new/." "$root/srv/zelmora"
        expect "$line" type_as_root "$line"
        check_settings
        line=$(page_lines "Upgrade and remove")
        expect "$line" type_as_root "$line"
        expect_equal "No package of ours is known any more" "" \
            "$(in_root dpkg-query --show --showformat '${Package}\n' | grep zelmora || true)"
        end_root
    done < <(page_lines "Install them" | grep '^apt-get install')
}
