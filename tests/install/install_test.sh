#!/usr/bin/env bash
# Installs the library, moves the installed tree, and builds and runs programs against it as a user would.
#
#   install_test.sh BUILD_FOLDER SOURCE_FOLDER VARIANT OPENMP_FOLDER
#
# CC and CXX name the compilers. Everything is written below BUILD_FOLDER/tests/install/scratch.
set -euo pipefail
build=$1 source=$2 variant=$3 openmp=$4
: "${CC:=cc}" "${CXX:=c++}"
unset LD_LIBRARY_PATH

case $variant in
    h9) word=-m32 other_word=-m64 ;;
    *)  word=-m64 other_word=-m32 ;;
esac
scratch=$build/tests/install/scratch
prefix=$scratch/moved

step() { printf '\n-- %s\n' "$*"; }
die() { printf 'FAILED: %s\n' "$*" >&2; exit 1; }
die_with() { cat "$1"; die "$1"; } # a log

step "install, then move"
rm -rf "$scratch"
mkdir -p "$scratch"
cmake --install "$build" --prefix "$scratch/installed" >"$scratch/install.log"
mv "$scratch/installed" "$prefix"
pc=$(find "$prefix" -name orvs.pc)
[ -n "$pc" ] || die "orvs.pc is not installed"
library=$(dirname "$(dirname "$pc")")
for name in "liborvs$variant" liborvcore; do
    [ -f "$library/$name.so.8.2" ] || die "$name.so.8.2 is not installed"
    [ "$library/$name.so" -ef "$library/$name.so.8.2" ] || die "$name.so is no link to it"
    readelf -d "$library/$name.so.8.2" | grep -qF "soname: [$name.so.8.2]" || die "$name.so.8.2 has another soname"
done
if grep -rF -e "$build" -e "$source" "$library/pkgconfig" "$library/cmake"; then
    die "the package names folders of the build"
fi
# The 32-bit OpenMP runtime is no package that can be installed beside the 64-bit one: its place is next to the library.
[ "$variant" != h9 ] || ln -s "$openmp/libomp.so.5" "$library/"

step "every header alone, in strict C99 and C++11"
for header in "$prefix"/include/orvs/*.h; do
    line="#include <orvs/$(basename "$header")>"
    strict=("$word" -pedantic -Wall -Wextra -Werror -fsyntax-only -I "$prefix/include")
    "$CC" -std=c99 -Wstrict-prototypes "${strict[@]}" -x c - <<<"$line" || die "C99: $line"
    "$CXX" -std=c++11 "${strict[@]}" -x c++ - <<<"$line" || die "C++11: $line"
    echo "$line"
done

# Runs a program that was linked to the library, and makes sure that it is the moved library.
run() {
    local program=$1 loaded
    shift
    loaded=$(ldd "$program")
    for name in "liborvs$variant" liborvcore; do
        grep -qF "$name.so.8.2 => $library/" <<<"$loaded" || die "$program loads another $name: $loaded"
    done
    "$program" "$@" || die "$program failed"
}

step "a C program through pkg-config"
export PKG_CONFIG_PATH=$library/pkgconfig
[ "$(pkg-config --modversion orvs)" = 8.2.0 ] || die "pkg-config reports another version"
read -ra flags <<<"$(pkg-config --cflags --libs orvs) -Wl,-rpath,$(realpath "$(pkg-config --variable=libdir orvs)")"
"$CC" "$word" -std=c99 -pedantic -Wall -Wextra -Werror "$source/tests/install/consumer.c" "${flags[@]}" \
    -o "$scratch/consumer"
run "$scratch/consumer"

configure() { # configure SOURCE BUILD WORD
    CFLAGS=$3 CXXFLAGS=$3 cmake -S "$1" -B "$2" -DCMAKE_PREFIX_PATH="$prefix" >"$2.log" 2>&1
}
build() { # build SOURCE BUILD
    { configure "$1" "$2" $word && cmake --build "$2" >>"$2.log" 2>&1; } || die_with "$2.log"
}

step "a C program through find_package"
mkdir "$scratch/consumer-source"
cp "$source/tests/install/consumer.c" "$scratch/consumer-source"
cat >"$scratch/consumer-source/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.16)
project(consumer LANGUAGES C)
find_package(orvs 8.2 REQUIRED)
add_executable(consumer consumer.c)
target_link_libraries(consumer PRIVATE orvs::orvs)
END
build "$scratch/consumer-source" "$scratch/consumer-build"
run "$scratch/consumer-build/consumer"

step "a program of the other word size does not find the package"
if configure "$scratch/consumer-source" "$scratch/other-word" $other_word; then
    die "a program built with $other_word finds the package"
fi
grep -qE 'version: 8.2.0 \((32|64)bit\)' "$scratch/other-word.log" || die_with "$scratch/other-word.log"

if [ "$variant" != h9 ]; then # Debian's libsndfile is 64-bit here
    step "the example mix through find_package"
    build "$source/examples/mix" "$scratch/mix"
    run "$scratch/mix/mix" -o "$scratch/mix.wav"
    # Same header as the inputs, and as long as the longer of them.
    size=$(stat -c %s /usr/share/sounds/alsa/{Front_Center,Noise}.wav | sort -n | tail -n 1)
    [ "$(stat -c %s "$scratch/mix.wav")" = "$size" ] || die "mix.wav should have $size bytes"
fi
step "passed"
