# To be sourced: how the tests of the packages say what they see. The first that fails ends them.

# fail REASON...
fail() {
    printf 'FAIL: %s\n' "$*" >&2
    exit 1
}

checks_passed=0

# passed SENTENCE: what has been shown, with the seconds since the tests began.
passed() {
    printf '%5d s  %s\n' "$SECONDS" "$1"
    checks_passed=$((checks_passed + 1))
}

# expect_equal SENTENCE EXPECTED FOUND: two texts, whose difference is shown.
expect_equal() {
    [[ $2 == "$3" ]] || {
        diff --unified --label expected --label found <(printf '%s\n' "$2") <(printf '%s\n' "$3") >&2 || true
        fail "$1"
    }
    passed "$1"
}

# expect SENTENCE COMMAND...: the command succeeds; what it says is shown when it does not. In a function that is called
# here a step that fails does not end it (set -e is off): its status is that of its last step.
expect() {
    local said
    said=$("${@:2}" 2>&1) || fail "$1"$'\n'"$said"
    passed "$1"
}
