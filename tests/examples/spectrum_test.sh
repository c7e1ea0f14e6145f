#!/usr/bin/env bash
# Runs the example spectrum on recordings and on everything that it must refuse.
#
#   spectrum_test.sh SPECTRUM PYTHON FOLDER      the program, the interpreter of the oracle, an empty place to write to
set -uo pipefail
program=$1 python=$2 folder=$3
oracle=$(realpath "$(dirname "$0")")/spectrum_oracle.py
# shellcheck source=refusals.sh
. "$(dirname "$0")/refusals.sh"

# shows ORDER STEP RECORDING OPTION...: report, drawing and picture are the oracle's; frames begin STEP samples apart.
shows() {
    local order=$1 step=$2 recording=$3
    shift 2
    printf '%s: ' "$*"
    rm -f out.png script
    "$program" -o out.png "$@" >report || { fail "exit code $?"; return; }
    "$python" "$oracle" check "$recording" "$order" "$step" report script out.png || fail "wrong result"
}

# A gnuplot that keeps what it is told, and one that does not listen.
make_gnuplots() {
    mkdir recording broken nothing
    printf '#!/bin/sh\n[ "$1" = --version ] || tee script | "%s"\n' "$(command -v gnuplot)" >recording/gnuplot
    printf '#!/bin/sh\n[ "$1" = --version ]\n' >broken/gnuplot
    for place in broken nothing; do
        printf '#!/bin/sh\nPATH="%s" exec "%s" "$@"\n' "$folder/$place" "$program" >$place/spectrum
    done
    chmod +x ./*/gnuplot ./*/spectrum
    PATH=$folder/recording:$PATH
}

rm -rf "$folder"
mkdir -p "$folder/folder" && cd "$folder" || exit 1
make_gnuplots
"$python" "$oracle" make . || exit 1
recording=/usr/share/sounds/alsa/Front_Center.wav

"$program" >report || fail "exit code $? without arguments"
"$python" "$oracle" check $recording 12 4096 report script spectrum.png || fail "wrong result without arguments"
shows 12 4096 five.wav
shows 12 2048 five.wav --overlap
shows 5 32 five.wav -n 5
shows 14 8192 five.wav --overlap -n 14
shows 12 4096 stereo24.wav
shows 11 1024 stereo24.wav -n 11 --overlap
shows 12 4096 beyond.wav
shows 7 128 beyond.wav -n 7
shows 12 4096 frame.wav
shows 12 2048 frame.wav --overlap
shows 11 2048 short.wav -n 11
shows 12 4096 constant.wav
shows 12 4096 silence.wav
shows 12 4096 half.wav
grep -qE '^peak +1000\.00 Hz +-6\.02 dB of full scale$' report || fail "the sine of half.wav is not found"
cp five.wav "five '\$\`echo\`.wav"
shows 12 4096 "five '\$\`echo\`.wav"
"$program" --help | grep -q '^Usage: spectrum ' || fail "no help"

refuses 1 "cannot read 'absent.wav'" -o out.png absent.wav
refuses 1 "cannot read 'text.wav'" -o out.png text.wav
refuses 1 "cannot read 'folder'" -o out.png folder
refuses 1 "'empty.wav' holds 0 samples, a frame 4096" -o out.png empty.wav
refuses 1 "'short.wav' holds 4095 samples, a frame 4096" -o out.png short.wav
refuses 1 "cannot write 'absent/out.png'" -o absent/out.png five.wav
refuses 1 "cannot write 'folder'" -o folder five.wav
refuses 1 "gnuplot could not write '/dev/full'" -o /dev/full five.wav
refuses 1 "the picture './five.wav' would overwrite the recording" -o ./five.wav five.wav
shows 12 4096 five.wav # it is still there
refuses 2 "-n: '4' is outside the range of orders, 5 to 20" -o out.png -n 4
refuses 2 "-n: '21' is outside" -o out.png -n 21
refuses 2 "-n: '12.5' is not a whole number" -o out.png -n 12.5
refuses 2 "-n: '' is not a whole number" -o out.png -n ""
refuses 2 "-n needs a value" -o out.png -n
refuses 2 "-o needs a value" -o
refuses 2 "unknown option --window" -o out.png --window
refuses 2 "expected one recording or none, got 2" -o out.png five.wav short.wav
program=$folder/nothing/spectrum
refuses 1 "gnuplot is missing, which draws the picture (Debian: gnuplot-nox)" -o out.png five.wav
program=$folder/broken/spectrum
refuses 1 "gnuplot could not write 'left.png'" -o left.png -n 14 five.wav # more than a pipe holds

printf '%d failures\n' $failures
[ $failures = 0 ]
