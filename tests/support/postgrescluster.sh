#!/usr/bin/env bash
# The server of a PostgresCluster: postgrescluster.sh <database> <user> <password>
#
# Says "done" and the scratch folder when the server is up, then obeys the commands "start", "stop" and "kill" of
# standard input and says "done" after each. At the end of standard input, which comes whatever way the test ends,
# server and folder go. What fails is said instead, and is the end too.
set -euo pipefail
exec 2>&1
trap '' HUP INT PIPE TERM # the end of standard input is the only one

database=$1 user=$2 password=$3

fail() {
    echo "$1"
    exit 1
}

# The server does not run as root: root lends it a user.
as_server_user() {
    if ((EUID == 0)); then
        setpriv --reuid=postgres --regid=postgres --clear-groups -- "$@"
    else
        "$@"
    fi
}

make_server() {
    as_server_user "$binaries/initdb" --pgdata=data --no-sync --encoding=UTF8 --locale=C \
        --username="$user" --pwfile=password --auth=scram-sha-256
}

# Nothing of the server lies outside the folder, shared memory of queries neither. A test that forgets the end of a
# transaction fails instead of waiting for itself.
configure_server() {
    cat >>data/postgresql.conf <<END
listen_addresses = ''
unix_socket_directories = '"$folder"'
dynamic_shared_memory_type = mmap
fsync = off
lock_timeout = 20s
log_statement = all
log_line_prefix = '%p '
END
}

start_server() {
    as_server_user "$binaries/pg_ctl" start --silent --wait --pgdata=data --log=log
}

stop_server() {
    as_server_user "$binaries/pg_ctl" stop --silent --wait --pgdata=data --mode="$1"
}

make_database() {
    PGPASSWORD=$password "$binaries/createdb" --host="$folder" --username="$user" "$database"
}

clean_up() {
    stop_server immediate >/dev/null || true
    cd /
    rm --recursive --force "$folder"
}

# quietly <command>...: what the command says is for its failure.
quietly() {
    "$@" </dev/null >output 2>&1 || fail "$(cat output log 2>/dev/null)"
}

binaries=$(printf '%s\n' /usr/lib/postgresql/*/bin | sort --version-sort | tail --lines=1)
[[ -x $binaries/initdb ]] || fail "There is none: install the package postgresql."

folder=$(mktemp --directory --tmpdir zelmora-XXXXXX)
cd "$folder"
trap 'clean_up 2>/dev/null' EXIT
socket=$folder/.s.PGSQL.5432
(($(printf %s "$socket" | wc --bytes) <= 107)) || fail "The socket's path has more than 107 bytes: $socket."

echo "$password" >password
((EUID != 0)) || chown --recursive postgres: .
quietly make_server
configure_server
quietly start_server
quietly make_database
echo "done $folder"

while read -r command; do
    case $command in
        start) quietly start_server ;;
        stop) quietly stop_server fast ;;
        kill) quietly stop_server immediate ;;
        *) fail "There is no command $command." ;;
    esac
    echo "done "
done
