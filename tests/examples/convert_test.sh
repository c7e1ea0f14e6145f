#!/usr/bin/env bash
# Runs the example convert on recordings of every sample format and on everything that it must refuse.
#
#   convert_test.sh CONVERT PYTHON FOLDER      the program, the interpreter of the oracle, an empty place to write to
set -uo pipefail
program=$1 python=$2 folder=$3
oracle=$(realpath "$(dirname "$0")")/convert_oracle.py
formats=(s16 s24 float alaw mulaw)
# shellcheck source=refusals.sh
. "$(dirname "$0")/refusals.sh"

# converts RECORDING [SAME]: the files written in every format and the reports are the oracle's. SAME is a WAV file of
# the same samples, for recordings that the oracle does not read.
converts() {
    local format
    printf '%s: ' "$1"
    rm -f ./*.out ./*.report
    for format in "${formats[@]}"; do
        "$program" -o "$format.out" -f "$format" "$1" >"$format.report" || { fail "$format: exit code $?"; return; }
    done
    "$python" "$oracle" check "${2:-$1}" "${formats[@]}" || fail "wrong result"
}

rm -rf "$folder"
mkdir -p "$folder/folder" && cd "$folder" || exit 1
"$python" "$oracle" make . || exit 1
recording=/usr/share/sounds/alsa/Front_Center.wav

"$program" >mulaw.report || fail "exit code $? without arguments"
mv convert.wav mulaw.out
"$python" "$oracle" check $recording mulaw || fail "wrong result without arguments"
for name in 8bit 16bit 24bit 32bit float double alaw mulaw stereo16 stereo_alaw surround one one_mulaw three silence; do
    converts $name.wav
done
for name in alaw mulaw; do converts $name.au $name.wav; done
for name in 8bit 16bit 24bit; do
    if [ -e $name.flac ]; then converts $name.flac $name.wav; else echo "skipped: no $name.flac"; fi
done
"$program" --help | grep -q '^Usage: convert ' || fail "no help"

refuses 1 "cannot read 'absent.wav'" -o out.wav absent.wav
refuses 1 "cannot read 'text.wav'" -o out.wav text.wav
refuses 1 "cannot read 'folder'" -o out.wav folder
refuses 1 "cannot read ''" -o out.wav ""
refuses 1 "'empty.wav' holds no samples" -o out.wav empty.wav
refuses 1 "cannot write 'absent/out.wav'" -o absent/out.wav
refuses 1 "cannot write 'folder'" -o folder
refuses 1 "cannot write '/dev/full'" -o /dev/full
refuses 1 "the output './16bit.wav' would overwrite the recording" -f s16 -o ./16bit.wav 16bit.wav
converts 16bit.wav # it is still there
refuses 2 "-f: 'u16' is none of the formats s16, s24, float, alaw and mulaw" -o out.wav -f u16
refuses 2 "-f: 'S16' is none" -o out.wav -f S16
refuses 2 "-f: '' is none" -o out.wav -f ""
refuses 2 "-f needs a value" -o out.wav -f
refuses 2 "-o needs a value" -o
refuses 2 "unknown option --format" -o out.wav --format s16
refuses 2 "unknown option -x" -o out.wav -x
refuses 2 "expected one recording or none, got 2" -o out.wav one.wav three.wav

printf '%d failures\n' $failures
[ $failures = 0 ]
