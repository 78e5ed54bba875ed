# Sourced by the scripts. Sets `top`, the repository's folder, and what several scripts do.

# shellcheck shell=bash
top=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." >/dev/null && pwd -P)

# shellcheck source=script/lib/packages.sh
source "$top/script/lib/packages.sh"

# Qt wants a UTF-8 locale and a bare system has none; the C library brings this one itself.
if [[ $(locale charmap 2>/dev/null) != UTF-8 ]]; then
    export LC_ALL=C.UTF-8
fi

# build PRESET [TARGET..]: without a target, everything.
build()
{
    local preset=$1
    shift
    (
        cd -- "$top" || exit
        cmake --preset "$preset"
        cmake --build --preset "$preset" ${1+--target "$@"}
    )
}

# A home of its own for programs that a script runs, so that no file of the user is read or written. Removed at the end.
fresh_home()
{
    HOME=$(mktemp -d)
    # shellcheck disable=SC2064
    trap "rm -rf -- '$HOME'" EXIT
    mkdir -m 700 "$HOME/runtime"
    export HOME XDG_CONFIG_HOME="$HOME/config" XDG_DATA_HOME="$HOME/data" XDG_CACHE_HOME="$HOME/cache"
    export XDG_RUNTIME_DIR="$HOME/runtime"
}

virtual_display=1366x768
on_virtual_display()
{
    xvfb-run -a -s "-screen 0 ${virtual_display}x24" "$@"
}

# run_tests PRESET [ctest arguments]: ends with the plain line "N passed, N failed"; its status tells whether all passed.
run_tests()
{
    local preset=$1
    shift
    local results=$top/build/$preset/tests.xml status=0 total=0 failed=0
    rm -f -- "$results"
    fresh_home
    (cd -- "$top" && on_virtual_display ctest --preset "$preset" --no-tests=error --output-junit "$results" "$@") || status=$?
    if [[ -f $results ]]; then
        total=$(sed -n 's/^[[:space:]]*tests="\([0-9]*\)".*/\1/p' "$results" | head -n 1)
        failed=$(sed -n 's/^[[:space:]]*failures="\([0-9]*\)".*/\1/p' "$results" | head -n 1)
    fi
    # Nothing ran, or the runner itself failed: that is a failure too.
    if ((status && !failed)); then
        failed=1 total=$((total > 0 ? total : 1))
    fi
    echo "$((total - failed)) passed, $failed failed"
    return "$status"
}
