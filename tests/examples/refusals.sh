# Shared by the tests of the examples: counts failures, and checks what an example must refuse. The test sets `program` to
# the path of the example.
failures=0

fail() { printf 'FAILED: %s\n' "$*"; failures=$((failures + 1)); }

# refuses CODE TEXT ARGUMENT...: exit code, one message on standard error that contains TEXT, no report.
refuses() {
    local code=$1 text=$2 got name=${program##*/}
    shift 2
    rm -f out.*
    "$program" "$@" >report 2>message
    got=$?
    printf '%s %s: %s\n' "$name" "$*" "$(head -n 1 message)"
    [ "$got" = "$code" ] || fail "exit code $got, expected $code"
    grep -qF -- "$text" message || fail "the message should contain: $text"
    [ "$(grep -c "^$name: " message)" = 1 ] || fail "one message is expected: $(cat message)"
    [ ! -s report ] || fail "a report was printed"
    [ -z "$(compgen -G "out.*")" ] || fail "an output was written"
}
