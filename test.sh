#!/bin/sh
# Installs what is missing, builds, and runs every check and test. The last lines are CTest's
# counts, which cover all of it; the exit status is 0 when nothing failed.
#
# usage: ./test.sh [--quick]
#        ./test.sh --update-transcripts [NAME]
#        ./test.sh --fuzz MINUTES
#
#   --quick               the release build's tests and the format only
#   --update-transcripts  rewrite the transcripts (or the one named) with what really happens
#   --fuzz                run each fuzz target for so long
#
# Everything is built below build/, one directory a preset; what is up to date is not built or
# checked again. WAP_KEEP_STATE and WAP_TIME_SCALE: see tests/transcripts/README.md.
set -u
cd "$(dirname "$0")" || exit 1

jobs=$(nproc)
suite=$PWD/build/suite

usage() {
    sed -n 's/^# usage: /usage: /p; s/^#        \.\//       .\//p' "$0" >&2
    exit 2
}

# stage NAME COMMAND...: runs a command ahead of CTest; its result counts as a test of that name.
stage() {
    name=$1
    shift
    started=$(date +%s)
    printf '== %s ... ' "$name"
    status=0
    "$@" >"$suite/$name.log" 2>&1 </dev/null || status=$?
    if [ $status -eq 0 ]; then
        echo "done ($(($(date +%s) - started)) s)"
    else
        echo "FAILED"
        cat "$suite/$name.log"
    fi
    echo "add_test($name sh -c \"echo 'shown above, and in $suite/$name.log'; exit $status\")" \
        >>"$suite/CTestTestfile.cmake"
    return $status
}

new_suite() {
    mkdir -p "$suite"
    : >"$suite/CTestTestfile.cmake"
}

configure_and_build() {
    preset=$1
    shift
    cmake --preset "$preset" && cmake --build "build/$preset" --parallel "$jobs" "$@"
}

# suite_of PRESET [BUILD OPTION...]: builds a preset and adds its tests to the suite.
suite_of() {
    stage "build.$1" configure_and_build "$@"
    echo "subdirs(\"../$1\")" >>"$suite/CTestTestfile.cmake"
}

run_suite() {
    ctest --test-dir "$suite" --parallel "$jobs" --output-on-failure --no-tests=error "$@"
}

check_format() {
    git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
}

# clang-tidy runs beside the compiler, so that the build system knows what is still clean.
check_tidy() {
    [ ! .clang-tidy -nt build/tidy/build.ninja ] || rm -rf build/tidy
    cmake --preset release -B build/tidy -D CMAKE_BUILD_TYPE=Debug \
        -D CMAKE_CXX_CLANG_TIDY='clang-tidy;--quiet' &&
        cmake --build build/tidy --parallel "$jobs" -- -k 0 --quiet
}

has_fuzz_targets() {
    [ -n "$(find tests/fuzz -name '*_fuzz.cpp')" ]
}

fuzz() {
    case ${1-} in
    '' | 0 | *[!0-9]*) usage ;;
    esac
    new_suite
    suite_of fuzz --target fuzz_targets
    cmake -D "WAP_FUZZ_SECONDS=$(($1 * 60))" build/fuzz >"$suite/fuzz.log" &&
        run_suite --verbose
    status=$?
    cmake -U WAP_FUZZ_SECONDS build/fuzz >"$suite/fuzz.log"
    exit $status
}

update_transcripts() {
    new_suite
    stage build.release configure_and_build release || exit 1
    if [ $# -gt 0 ]; then
        set -- "tests/transcripts/${1%.txt}.txt"
    else
        set -- tests/transcripts/*.txt
    fi
    build/release/tests/transcript_test --enter device/enter --root build/release/device/root \
        --program build/release/src/wap-cli --update "$@"
    exit
}

run_tests() {
    new_suite
    stage format check_format
    suite_of release
    if [ "$1" = all ]; then
        suite_of asan
        suite_of mips
        ! has_fuzz_targets || suite_of fuzz --target fuzz_targets
        stage tidy check_tidy
    fi
    run_suite
    exit
}

device/enter --check >/dev/null || exit 1
packages='run test'
[ $# -gt 0 ] || packages="$packages cross"
! has_fuzz_targets || packages="$packages fuzz"
# shellcheck disable=SC2086 # a list of groups
tools/install-packages $packages </dev/null || exit 1
case ${1-} in
'') run_tests all ;;
--quick) run_tests quick ;;
--update-transcripts)
    shift
    update_transcripts "$@"
    ;;
--fuzz) fuzz "${2-}" ;;
*) usage ;;
esac
