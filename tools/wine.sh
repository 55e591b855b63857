# shellcheck shell=bash
# Windows programs under Wine, with a prefix and a display of their own. To be sourced:
#
#     trap stop_wine EXIT
#     start_wine build/wine-prefix
#     run_on_wine build/windows-x86_64/sample/tavoru.exe --help

# Longer than any run takes: a program that waits for somebody must not wait for ever.
wine_time_limit=300

# Starts a display and, where the prefix is new, sets it up (some ten seconds).
start_wine() {
    export WINEPREFIX WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
    WINEPREFIX=$(realpath --canonicalize-missing "$1")
    # A home of its own: the user's folders lead there, and the recycle bin, without which files are deleted.
    [[ -e $WINEPREFIX/home || ! -e $WINEPREFIX/.complete ]] || rm -rf "$WINEPREFIX"
    export HOME=$WINEPREFIX/home XDG_DATA_HOME=$WINEPREFIX/home/data
    mkdir -p "$XDG_DATA_HOME"
    start_display
    if [[ ! -e $WINEPREFIX/.complete ]]; then
        timeout "$wine_time_limit" wineboot --init >"$WINEPREFIX/wineboot.log" 2>&1 ||
            fail "Wine cannot set up $WINEPREFIX; see wineboot.log there"
        # Without a window manager every closed window would be waited for, two seconds each.
        wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
        touch "$WINEPREFIX/.complete"
    fi
}

# Xvfb picks a free display and tells its number.
start_display() {
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
    display_process=$!
    while [[ ! -s $number_file ]] && kill -0 "$display_process" 2>/dev/null; do sleep 0.1; done
    export DISPLAY
    DISPLAY=:$(<"$number_file")
    rm "$number_file"
    [[ $DISPLAY != : ]] || fail "Xvfb does not start"
}

# Runs a program with its arguments; its exit code is the result.
run_on_wine() {
    timeout "$wine_time_limit" wine "$@" 2>&1 </dev/null | tr -d '\r'
    return "${PIPESTATUS[0]}"
}

# The Windows form of a path.
windows_path() {
    local path
    path=$(realpath --canonicalize-missing "$1")
    echo "Z:${path//\//\\}"
}

# Ends whatever runs in the prefix, and the display.
stop_wine() {
    if [[ -d ${WINEPREFIX:-} ]]; then wineserver --kill || true; fi
    if [[ -n ${display_process:-} ]]; then
        kill "$display_process" 2>/dev/null || true
        wait "$display_process" 2>/dev/null || true
    fi
}

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}
