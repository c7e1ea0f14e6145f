#!/usr/bin/env bash
# Runs the example levels on recordings and on everything that it must refuse.
#
#   levels_test.sh LEVELS PYTHON FOLDER      the program, the interpreter of the oracle, an empty place to write to
set -uo pipefail
program=$1 python=$2 folder=$3
oracle=$(realpath "$(dirname "$0")")/levels_oracle.py
# shellcheck source=refusals.sh
. "$(dirname "$0")/refusals.sh"

# shows RECORDING [LINE]: the report is the oracle's and, if it is known without one, has the line.
shows() {
    printf '%s: ' "$1"
    "$program" "$1" >report || { fail "exit code $?"; return; }
    "$python" "$oracle" check "$1" <report || fail "wrong result"
    [ $# = 1 ] || grep -qxE -- "$2" report || fail "the report should have the line: $2"
}

rm -rf "$folder"
mkdir -p "$folder/folder" && cd "$folder" || exit 1
"$python" "$oracle" make . || exit 1
recording=/usr/share/sounds/alsa/Front_Center.wav

"$program" >report || fail "exit code $? without arguments"
"$python" "$oracle" check $recording <report || fail "wrong result without arguments"
shows /usr/share/sounds/alsa/Noise.wav
shows mono16.wav
shows mono8.wav
shows stereo24.wav
shows beyond.wav
shows mono.wav 'correlation \+1\.0000'
shows opposed.wav 'correlation -1\.0000'
shows one_sided.wav 'correlation -'
shows offset.wav
shows silence.wav '1 +-inf dB +0\.0000 s +\+0\.000000 +-inf dB +-  +0\.000000'
shows tie1.wav
shows tie2.wav
shows lowest.wav '1 +0\.00 dB +0\.0000 s +-0\.000015 .*'
"$program" --help | grep -q '^Usage: levels ' || fail "no help"

refuses 1 "cannot read 'absent.wav'" absent.wav
refuses 1 "cannot read 'text.wav'" text.wav
refuses 1 "cannot read 'folder'" folder
refuses 1 "cannot read ''" ""
refuses 1 "'empty.wav' holds no samples" empty.wav
refuses 1 "'single.wav' holds a single sample" single.wav
refuses 2 "unknown option -x" -x
refuses 2 "expected one recording or none, got 2" mono16.wav mono8.wav

printf '%d failures\n' $failures
[ $failures = 0 ]
