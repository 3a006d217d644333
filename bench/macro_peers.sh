#!/bin/bash
# Seconds of processor time of the macros in macros/, beside the same loops in CPython and Lua where these are
# installed: the best of five runs each, starts included. All must print the same.
#
#   bench/macro_peers.sh [BATCH]      BATCH: the program; build/bench/bin/gemforge-batch if it is not given
set -eu
here=$(cd "$(dirname "$0")" && pwd)
batch=${1:-$here/../build/bench/bin/gemforge-batch}
python=${PYTHON:-$(command -v python3 || true)}
lua=${LUA:-$(command -v lua5.4 || true)}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
awk 'BEGIN { for (i = 0; i < 100001; i++) printf "custom_%d.moving.left.xpos:%16d\n", i % 256 + 1, i % 16 }' >"$work/lines.conf"

# best OUTPUT COMMAND...
best() {
    local out=$1 least=
    shift
    for _ in 1 2 3 4 5; do
        local TIMEFORMAT='%U %S' spent
        spent=$({ time "$@" >"$out"; } 2>&1 | awk '{ print $1 + $2 }')
        least=$(awk -v a="${least:-999}" -v b="$spent" 'BEGIN { print a < b ? a : b }')
    done
    printf '%s' "$least"
}

printf '%-12s %10s %10s %10s\n' macro Gemforge CPython Lua
for macro in count build replace replaceall gosub group; do
    on=() argument=()
    case $macro in replace*) on=(--on "$work/lines.conf") argument=("$work/lines.conf") ;; esac
    row=$(printf '%-12s' $macro)
    row+=$(printf ' %10s' "$(best "$work/gemforge" "$batch" run "$here/macros/$macro.gfbasic" "${on[@]}")")
    for peer in "python=$python=py" "lua=$lua=lua"; do
        IFS='=' read -r name program ending <<<"$peer"
        source=$here/macros/$macro.$ending
        spent=-
        if [ -n "$program" ] && [ -f "$source" ]; then
            spent=$(best "$work/$name" "$program" "$source" "${argument[@]}")
            cmp "$work/gemforge" "$work/$name" || exit 1
        fi
        row+=$(printf ' %10s' "$spent")
    done
    echo "$row"
done
