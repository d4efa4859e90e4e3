#!/bin/sh
# Installs what is missing, builds, and runs every check and test. It ends with CTest's counts,
# which cover all of them; the exit status is 0 when nothing failed.
#
# usage: ./test.sh [--quick]
#        ./test.sh --update-transcripts [NAME]
#        ./test.sh --fuzz MINUTES
#        ./test.sh --machine
#        ./test.sh --help
#
#   --quick               the inner loop: the format, and the release build's tests without the long
#                         ones (soak, valgrind, fleet)
#   --update-transcripts  rewrite the transcripts, or only tests/transcripts/NAME.txt, with what
#                         really happens
#   --fuzz                run each fuzz target for MINUTES
#   --machine             boot the device as a computer of its own, and test it over its serial line
#   --help                show this
#
# Each preset is built in its directory below build/; what is up to date is not built or linted
# again. WAP_KEEP_STATE and WAP_TIME_SCALE: see tests/transcripts/README.md.
set -u

usage() {
    sed -n 's/^# usage: /usage: /p; s/^#        \.\//       .\//p' "$0" >&2
    exit 2
}

mode=${1-}
case $mode in
--help | -h)
    [ $# -eq 1 ] || usage
    sed -n '/^# usage: /,/^[^#]/s/^# \{0,1\}//p' "$0"
    exit
    ;;
'' | --quick | --machine) [ $# -le 1 ] || usage ;;
--update-transcripts) [ $# -le 2 ] || usage ;;
--fuzz)
    case ${2-} in
    '' | *[!0-9]*) usage ;;
    *[1-9]*) [ $# -eq 2 ] || usage ;;
    *) usage ;;
    esac
    ;;
*) usage ;;
esac

cd -P "$(dirname "$(readlink -f "$0")")" || exit 1
jobs=$(nproc)
suite=$PWD/build/suite

# stage NAME COMMAND...: runs a command before CTest, and counts its result as a test of that name.
stage() {
    name=$1
    shift
    started=$(date +%s)
    printf '== %s ... ' "$name"
    "$@" >"$suite/$name.log" 2>&1 </dev/null
    status=$?
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

# suite_of PRESET [BUILD OPTION...]: builds a preset and adds its tests to the suite.
suite_of() {
    preset=$1
    shift
    stage "build.$preset" tools/build "$preset" --parallel "$jobs" "$@"
    echo "subdirs(\"../$preset\")" >>"$suite/CTestTestfile.cmake"
}

run_suite() {
    ctest --test-dir "$suite" --parallel "$jobs" --output-on-failure "$@"
}

format() {
    find src device tests tools bench -name '*.cpp' -o -name '*.h' |
        xargs clang-format --dry-run -Werror
}

# has_version TOOL: true when TOOL is of the version that its file of settings names. Versions of
# the formatter disagree, and each of the linter has other checks.
has_version() {
    wanted=$(sed -n "s/^# $1 //p" ".$1")
    case $("$1" --version) in
    *"version $wanted."*) return 0 ;;
    esac
    echo "== $1 ... not run: that takes version $wanted"
    return 1
}

check_format() {
    ! has_version clang-format || stage format format
}

# The linter runs with the compiler, so that unchanged files are not linted again.
build_checked() {
    if ! has_version clang-tidy; then
        suite_of asan
        return
    fi
    [ -z "$(find .clang-tidy tests/.clang-tidy -newer build/checked/build.ninja 2>/dev/null)" ] ||
        rm -rf build/checked
    suite_of checked -- -k 0
}

fuzz() {
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
    stage build.release tools/build release --parallel "$jobs" || exit 1
    [ $# -gt 0 ] || set -- tests/transcripts/*.txt
    build/release/tests/transcript_test --enter device/enter --root build/release/device/root \
        --program build/release/src/wap-cli --update "$@"
    exit
}

# machine_test NAME COMMAND...: adds a test of the machine to the suite.
machine_test() {
    echo "add_test(machine.$*)
set_tests_properties(machine.$1 PROPERTIES TIMEOUT 1200 ENVIRONMENT WAP_TIME_SCALE=5
    WORKING_DIRECTORY \"$PWD\")" >>"$suite/CTestTestfile.cmake"
}

# What the machine does as the stand-in does, a transcript of each family, and what it does otherwise.
test_machine() {
    new_suite
    stage build.release tools/build release --parallel "$jobs" --target transcript_test
    stage build.machine device/machine/build
    for family in acl_rogue apply arp_spoofing autorekey channel clients dhcp \
        editing limited_admin mfc snmp_usm transfer ../machine/machine; do
        machine_test "$(basename $family)" "$PWD/build/release/tests/transcript_test" \
            --machine --swapped --enter device/machine/enter --root build/machine/root \
            --program build/mips/src/wap-cli tests/transcripts/$family.txt
    done
    machine_test power-cut "$PWD/tests/machine/power-cut"
    run_suite
}

# need GROUP...: checks what this system allows, and installs packages.
need() {
    device/enter --check >/dev/null || exit 1
    tools/install-packages "$@" </dev/null || exit 1
}

case $mode in
--quick)
    need run ssh quick
    new_suite
    check_format
    suite_of release
    run_suite --exclude-regex '\.(soak|valgrind|fleet)$'
    ;;
--update-transcripts)
    shift
    if [ $# -gt 0 ]; then
        set -- "tests/transcripts/${1%.txt}.txt"
        if [ ! -f "$1" ]; then
            echo "test.sh: no transcript $1" >&2
            exit 2
        fi
    fi
    need run quick
    update_transcripts "$@"
    ;;
--fuzz)
    need run quick fuzz
    fuzz "$2"
    ;;
--machine)
    tools/install-packages run quick cross machine </dev/null || exit 1
    test_machine
    ;;
*)
    need run ssh quick test cross fuzz
    new_suite
    check_format
    suite_of release
    build_checked
    suite_of mips
    suite_of fuzz --target fuzz_targets
    run_suite
    ;;
esac
