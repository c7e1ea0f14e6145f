#!/usr/bin/env bash
# Runs the example mix on recordings and on everything that it must refuse.
#
#   mix_test.sh MIX PYTHON FOLDER      the program, the interpreter of the oracle, an empty place to write to
set -uo pipefail
program=$1 python=$2 folder=$3
oracle=$(realpath "$(dirname "$0")")/mix_oracle.py
# shellcheck source=refusals.sh
. "$(dirname "$0")/refusals.sh"

# mixes FIRST SECOND DB1 DB2: the written file and the report are the oracle's.
mixes() {
    printf '%s at %s dB + %s at %s dB: ' "$1" "$3" "$2" "$4"
    rm -f out.wav
    "$program" -o out.wav --gain1 "$3" --gain2 "$4" "$1" "$2" >report || { fail "exit code $?"; return; }
    "$python" "$oracle" check out.wav "$1" "$2" "$3" "$4" <report || fail "wrong result"
}

rm -rf "$folder"
mkdir -p "$folder/folder" && cd "$folder" || exit 1
"$python" "$oracle" make . || exit 1
speech=/usr/share/sounds/alsa/Front_Center.wav
noise=/usr/share/sounds/alsa/Noise.wav

"$program" >report || fail "exit code $? without arguments"
"$python" "$oracle" check mix.wav $speech $noise 0 -12 <report || fail "wrong result without arguments"
mixes $speech $noise 6 6
mixes $noise $speech -3.7 -20
mixes long.wav short.wav 0 0
mixes long.wav short.wav 6 6
mixes short.wav long.wav -6.02 -84
mixes block.wav block.wav 1 2
mixes one.wav block.wav -1 -1
mixes one.wav one.wav 5 0
mixes stereo1.wav stereo2.wav -3 4.5
"$program" --help | grep -q '^Usage: mix ' || fail "no help"

refuses 1 "cannot read 'absent.wav'" -o out.wav absent.wav $noise
refuses 1 "cannot read 'absent.wav'" -o out.wav $speech absent.wav
refuses 1 "cannot read 'text.wav'" -o out.wav text.wav $noise
refuses 1 "'8bit.wav' is not a 16-bit PCM recording" -o out.wav 8bit.wav $noise
refuses 1 "'24bit.wav' is not a 16-bit PCM recording" -o out.wav $speech 24bit.wav
refuses 1 "'empty.wav' holds no samples" -o out.wav $speech empty.wav
refuses 1 "the recordings differ in sample rate: 48000 and 44100" -o out.wav $speech rate.wav
refuses 1 "the recordings differ in channel count: 2 and 1" -o out.wav stereo1.wav $noise
refuses 1 "cannot write 'absent/out.wav'" -o absent/out.wav
refuses 1 "cannot write 'folder'" -o folder
refuses 1 "cannot write '/dev/full'" -o /dev/full
refuses 1 "the output './long.wav' would overwrite a recording" -o ./long.wav short.wav long.wav
mixes long.wav short.wav 0 0 # it is still there
refuses 2 "--gain1: '6.1' is outside the range of gains, -84 to 6 dB" -o out.wav --gain1 6.1
refuses 2 "--gain2: '-85' is outside" -o out.wav --gain2 -85
refuses 2 "--gain2: 'nan' is outside" -o out.wav --gain2 nan
refuses 2 "--gain1: 'loud' is not a number" -o out.wav --gain1 loud
refuses 2 "--gain1: '' is not a number" -o out.wav --gain1 ""
refuses 2 "--gain1: '3dB' is not a number" -o out.wav --gain1 3dB
refuses 2 "--gain1 needs a value" -o out.wav --gain1
refuses 2 "-o needs a value" -o
refuses 2 "unknown option --gain3" -o out.wav --gain3 1
refuses 2 "unknown option -x" -o out.wav -x
refuses 2 "expected two recordings or none, got 1" -o out.wav $speech
refuses 2 "expected two recordings or none, got 3" -o out.wav $speech $noise $noise

printf '%d failures\n' $failures
[ $failures = 0 ]
