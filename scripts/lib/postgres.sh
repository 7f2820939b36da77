# A throwaway PostgreSQL server on loopback for the tests. Sourced by scripts/test.

# Starts it and exports VORN_TEST_PG; it stops, and its files go, when the calling script ends.
vorn_start_postgres() {
    local bin
    bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
    vorn_pg_dir=$(mktemp -d)
    vorn_pg_bin=$bin
    vorn_pg_as=()
    if [ "$(id -u)" = 0 ]; then
        chown postgres "$vorn_pg_dir"
        vorn_pg_as=(runuser -u postgres --) # the server refuses to run as root
    fi
    local port=$((20000 + RANDOM % 20000))
    (
        cd "$vorn_pg_dir"
        "${vorn_pg_as[@]}" "$bin/initdb" -D "$vorn_pg_dir/data" -U vorn -A trust -E UTF8 --locale=C.UTF-8 >/dev/null
        "${vorn_pg_as[@]}" "$bin/pg_ctl" -D "$vorn_pg_dir/data" -w -l "$vorn_pg_dir/log" \
            -o "-p $port -c listen_addresses=127.0.0.1 -c unix_socket_directories=$vorn_pg_dir -c fsync=off" \
            start >/dev/null
    )
    trap vorn_stop_postgres EXIT
    export VORN_TEST_PG="host=127.0.0.1 port=$port dbname=postgres user=vorn"
}

vorn_stop_postgres() {
    (cd "$vorn_pg_dir" && "${vorn_pg_as[@]}" "$vorn_pg_bin/pg_ctl" -D "$vorn_pg_dir/data" -m immediate stop >/dev/null) || true
    rm -rf "$vorn_pg_dir"
}
