# A private virtual display with a window manager. Sourced: start_display starts it and sets DISPLAY,
# stop_display ends it. 24 bit, 96 dpi, its own runtime folder.

start_display() {
    local size=${1:-1280x900}
    display_folder=$(mktemp -d)
    mkdir -m 700 "$display_folder/run"
    export XDG_RUNTIME_DIR=$display_folder/run QT_QPA_PLATFORM=xcb
    unset WAYLAND_DISPLAY
    exec 9>"$display_folder/number"
    Xvfb -displayfd 9 -screen 0 "${size}x24" -dpi 96 -nolisten tcp >/dev/null 2>&1 &
    display_server=$!
    exec 9>&-
    local wait
    for wait in $(seq 100); do [ -s "$display_folder/number" ] && break; sleep 0.05; done
    [ -s "$display_folder/number" ] || { echo "Xvfb did not start"; exit 4; }
    DISPLAY=:$(cat "$display_folder/number")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    display_manager=$!
    sleep 0.3
}

stop_display() {
    kill "$display_manager" "$display_server" 2>/dev/null
    wait "$display_manager" "$display_server" 2>/dev/null
    rm -rf "$display_folder"
}
