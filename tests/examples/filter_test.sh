#!/usr/bin/env bash
# Runs the example filter on recordings, with filters of every origin, and on everything that it must refuse.
#
#   filter_test.sh FILTER PYTHON FOLDER      the program, the interpreter of the oracle, an empty place to write to
set -uo pipefail
program=$1 python=$2 folder=$3
oracle=$(realpath "$(dirname "$0")")/filter_oracle.py
# shellcheck source=refusals.sh
. "$(dirname "$0")/refusals.sh"

# filters ARGUMENT...: filtered recording, what went into the filter, report, drawing and picture are the oracle's.
filters() {
    printf '%s: ' "$*"
    rm -f filtered.wav before.wav filter.png script
    "$program" --before before.wav "$@" >report 2>message || { fail "exit code $?: $(cat message)"; return; }
    [ ! -s message ] || fail "on standard error: $(cat message)"
    "$python" "$oracle" check . "$@" || fail "wrong result"
}

# draws_nothing TEXT ARGUMENT...: exit code 1 and a message that contains TEXT, and still the report and the recording.
draws_nothing() {
    local text=$1
    shift
    rm -f filtered.wav
    "$program" "$@" >report 2>message
    [ $? = 1 ] || fail "$*: wrong exit code"
    printf '%s: %s\n' "$*" "$(cat message)"
    grep -qxF -- "filter: $text" message || fail "the message should be: $text"
    grep -q '^speed ' report || fail "no report"
    cmp filtered.wav right.wav || fail "another filtered recording than with a picture"
}

# A gnuplot that keeps what it is told, and one that does not listen.
make_gnuplots() {
    mkdir recording broken nothing
    printf '#!/bin/sh\n[ "$1" = --version ] || tee script | "%s"\n' "$(command -v gnuplot)" >recording/gnuplot
    printf '#!/bin/sh\n[ "$1" = --version ]\n' >broken/gnuplot
    for place in broken nothing; do
        printf '#!/bin/sh\nPATH="%s" exec "%s" "$@"\n' "$folder/$place" "$program" >$place/filter
    done
    chmod +x ./*/gnuplot ./*/filter
    PATH=$folder/recording:$PATH
}

rm -rf "$folder"
mkdir -p "$folder/folder" && cd "$folder" || exit 1
make_gnuplots
"$python" "$oracle" make . || exit 1

filters
filters mono16.wav
filters mono16.wav --keep-delay
filters stereo16.wav --lowpass 1000 --stop 53
filters stereo16.wav --bandpass 1000,5000 --length 63
filters stereo16.wav --bandpass 0.5,22049 --stop 21 --length 3
filters mono16.wav --lowpass 4000 --stop 45 --length 2047
filters mono16.wav --taps 1
filters mono16.wav --taps 4
filters mono16.wav --taps 0.5,-1.5,0,0,1e-3
filters mono24.wav
filters mono24.wav --taps 1
filters stereo24.wav --bandpass 5000,20000 --length 127
filters stereo24.wav --taps-file any.txt --keep-delay
filters beyond.wav --taps 0.25,0.5,0.25
filters beyond.wav --taps 1
filters stereofloat.wav --lowpass 3000 --stop 100
filters stereofloat.wav --taps-file even.txt
filters mono16.wav --taps-file odd.txt
filters mono16.wav --taps-file any.txt
filters mono16.wav --taps-file written.txt
filters 8bit.wav --lowpass 1000
filters alaw.wav --taps 1
filters 32bit.wav --bandpass 300,3400
filters mono16.wav --noise 4096.wav
filters 513.wav --noise mono16.wav --noise-gain 20
filters mono16.wav --noise mono24.wav --noise-gain -40.5
filters mono24.wav --noise mono16.wav --taps 1
filters stereofloat.wav --noise-gain 0 --noise stereofloat.wav
for count in 1 511 512 513 4096 6144; do filters $count.wav --length 255; done
filters 1.wav --length 4001
filters silence.wav
cp mono16.wav "mono16 '\$\`echo\`.wav"
filters "mono16 '\$\`echo\`.wav"
"$program" --help | grep -q '^Usage: filter ' || fail "no help"
printf 'progress: '
"$python" "$oracle" progress "$program" minute.wav || fail "wrong progress"
filters mono16.wav
cp filtered.wav right.wav

refuses 1 "cannot read 'absent.wav'" -o out.wav absent.wav
refuses 1 "cannot read 'text.wav'" -o out.wav text.wav
refuses 1 "cannot read 'folder'" -o out.wav folder
refuses 1 "'empty.wav' holds no samples" -o out.wav empty.wav
refuses 1 "cannot read 'absent.wav'" -o out.wav --noise absent.wav mono16.wav
refuses 1 "recording and noise differ in sample rate: 48000 and 8000" -o out.wav --noise 8bit.wav mono16.wav
refuses 1 "recording and noise differ in channel count: 1 and 2" -o out.wav --noise stereofloat.wav mono16.wav
refuses 1 "cannot write 'absent/out.wav'" -o absent/out.wav mono16.wav
refuses 1 "cannot write 'folder'" -o folder mono16.wav
refuses 1 "cannot write '/dev/full'" -o /dev/full mono16.wav
refuses 1 "cannot write 'absent/before.wav'" -o left.wav --before absent/before.wav mono16.wav
refuses 1 "the output './mono16.wav' would overwrite 'mono16.wav'" -o ./mono16.wav mono16.wav
refuses 1 "the output './mono24.wav' would overwrite 'mono24.wav'" -o ./mono24.wav --noise mono24.wav mono16.wav
refuses 1 "the output './mono16.wav' would overwrite" -o out.wav --before ./mono16.wav mono16.wav
refuses 1 "the output './mono16.wav' would overwrite" -o out.wav --picture ./mono16.wav mono16.wav
refuses 1 "the output 'out.wav' would overwrite 'out.wav'" -o out.wav --before out.wav mono16.wav
filters mono16.wav --noise mono24.wav # they are still there
refuses 1 "the edge 4000 Hz is not below half the rate, 4000 Hz" -o out.wav --lowpass 4000 8bit.wav
refuses 1 "the edge 30000 Hz is not below half the rate, 24000 Hz" -o out.wav --bandpass 100,30000 mono16.wav
refuses 1 "cannot read 'absent.txt'" -o out.wav --taps-file absent.txt mono16.wav
refuses 1 "cannot read 'folder'" -o out.wav --taps-file folder mono16.wav
refuses 1 "'none.txt' holds no taps" -o out.wav --taps-file none.txt mono16.wav
refuses 1 "word.txt:2: '0.5 0.5' is not a number" -o out.wav --taps-file word.txt mono16.wav
refuses 1 "huge.txt:1: '1e39' is out of range" -o out.wav --taps-file huge.txt mono16.wav
refuses 2 "--taps: '' is not a number" -o out.wav --taps ""
refuses 2 "--taps: '' is not a number" -o out.wav --taps 1,,2
refuses 2 "--taps: 'nan' is out of range" -o out.wav --taps 1,nan
refuses 2 "--lowpass: 'high' is not a number" -o out.wav --lowpass high
refuses 2 "--lowpass: '0' is not above 0 Hz" -o out.wav --lowpass 0
refuses 2 "--bandpass: '300' is not a pair of frequencies" -o out.wav --bandpass 300
refuses 2 "--bandpass: '3400,300' is not an ascending pair" -o out.wav --bandpass 3400,300
refuses 2 "--bandpass: '0,300' is not an ascending pair" -o out.wav --bandpass 0,300
refuses 2 "--length: '512' is not an odd number" -o out.wav --length 512
refuses 2 "--length: '5.5' is not an odd number" -o out.wav --length 5.5
refuses 2 "--length: '1' is outside the range of lengths, 3 to 65535" -o out.wav --length 1
refuses 2 "--length: '65537' is outside" -o out.wav --length 65537
refuses 2 "--stop: '20' is outside the range of attenuations, 21 to 120" -o out.wav --stop 20
refuses 2 "--noise-gain: '25' is outside the range of gains, -84 to 24" -o out.wav --noise-gain 25
refuses 2 "--noise-gain needs a value" -o out.wav --noise-gain
refuses 2 "-o needs a value" -o
refuses 2 "--taps: there is a filter already" -o out.wav --lowpass 300 --taps 1
refuses 2 "unknown option --highpass" -o out.wav --highpass 300
refuses 2 "unknown option --taps=1" -o out.wav --taps=1
refuses 2 "expected one recording or none, got 2" -o out.wav mono16.wav mono24.wav
draws_nothing "no picture: gnuplot could not write 'absent/filter.png'" --picture absent/filter.png mono16.wav
draws_nothing "no picture: gnuplot could not write 'folder'" --picture folder mono16.wav
draws_nothing "no picture: gnuplot could not write '/dev/full'" --picture /dev/full mono16.wav
program=$folder/nothing/filter
draws_nothing "no picture: gnuplot is missing, which draws it (Debian: gnuplot-nox)" mono16.wav
program=$folder/broken/filter
rm -f filter.png
draws_nothing "no picture: gnuplot could not write 'filter.png'" mono16.wav

printf '%d failures\n' $failures
[ $failures = 0 ]
