#!/bin/bash
# Seconds of macros that work with many or large files, beside the system's own commands: once each, starts included,
# in a folder of their own.
#
#   bench/macro_files.sh [BATCH [FOLDER]]      BATCH: the program; build/bench/bin/gemforge-batch if it is not given.
#                                              FOLDER: packed and unpacked; /usr/include if it is not given.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
batch=$(realpath "${1:-$here/../build/bench/bin/gemforge-batch}")
source=${2:-/usr/include}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# row NAME COMMAND...: how long it takes, and what it prints
row() {
    local name=$1 TIMEFORMAT='%R %U'
    shift
    local spent
    spent=$({ time "$@" >out 2>err; } 2>&1) || { cat out err; exit 1; }
    printf '%-34s %8s s %8s s of the processor   %s\n' "$name" $spent "$(head -c 60 out | tr '\n' ' ')"
}
# macro NAME LINE...
macro() {
    local name=$1
    shift
    printf '%s\n' "$@" >macro.txt
    row "$name" "$batch" run macro.txt --allow-files
}

mkdir many
(cd many && seq -f 'custom_%06.0f.conf' 100000 | xargs touch)
macro 'dir, 100,000 entries' 'cd many' 'dir *.conf' 'print [lastdircount]'
row 'ls' ls -f many

cp -rL "$source" packed 2>/dev/null || true
macro 'zip' 'zip packed a.zip'
command -v zip >/dev/null && row 'zip -9' zip -9qr b.zip packed
mkdir out1 out2
macro 'unzip' 'unzip packed\ a.zip out1'
command -v unzip >/dev/null && row 'unzip' unzip -qo a.zip -d out2
macro 'dircopy' 'dircopy packed copied'
row 'cp -r' cp -r packed copied2
macro 'dirkill' 'dirkill copied'
row 'rm -r' rm -r copied2

truncate -s 1G large
macro 'peek, 100,000 times in 1 GB' 'fileset large' 'dim $s' 'set $s =0' 'loop 1 100000' \
    'peek ([loopnumber]*10737) 2bit' 'set $s +[lastpeek]' 'endloop' 'print $s'
macro 'poke, 10,000 times in 1 GB' 'fileset large' 'loop 1 10000' 'poke ([loopnumber]*107374) 65 2bit' 'endloop' \
    'peek 107374 2bit' 'print [lastpeek]'

macro 'print, 300 screens of 80 by 25' 'loop 1 25' 'print . &79' 'print [br]' 'endloop' 'overtype on' 'loop 1 300' \
    'gosub @screen' 'endloop' 'sub @screen' 'loop 0 24' 'locate 0 [loopnumber]' \
    'print a &9 b &9 c &9 d &9 e &9 f &9 g &9 h &9' 'endloop' 'endsub'
