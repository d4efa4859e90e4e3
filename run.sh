#!/bin/sh
# Opens the console on the stand-in access point, after installing and building what is missing.
#
# usage: ./run.sh [--factory] [--trace] [--record FILE] [--state DIRECTORY]
#
#   --factory  start from the factory settings; what was saved is forgotten
#   --trace    show after each command what it wrote and which command lines it ran
#   --record   write the session to FILE as a transcript
#   --state    keep the device's files in DIRECTORY instead of .wap/state
#
# Settings that were saved (set apply saves them) are there again at the next start. Standard input
# may be a pipe; standard output is the console's alone; the exit status is the console's.
set -eu

usage() {
    echo "usage: ./run.sh [--factory] [--trace] [--record FILE] [--state DIRECTORY]" >&2
    exit 2
}

absolute() {
    case $1 in
    /*) echo "$1" ;;
    *) echo "$PWD/$1" ;;
    esac
}

factory='' trace='' record='' state=''
while [ $# -gt 0 ]; do
    case $1 in
    --factory) factory=--factory ;;
    --trace) trace=--trace ;;
    --record | --state)
        [ -n "${2-}" ] || usage
        case $1 in
        --record) record=$(absolute "$2") ;;
        --state) state=$(absolute "$2") ;;
        esac
        shift
        ;;
    *) usage ;;
    esac
    shift
done

cd "$(dirname "$0")"
build=build/release
: "${state:=$PWD/.wap/state}"

# quietly COMMAND...: its output only when it fails.
quietly() {
    if ! "$@" >"$log" 2>&1 </dev/null 9>&-; then
        cat "$log" >&2
        echo "run.sh: '$*' failed" >&2
        exit 1
    fi
}

# True when the build directory is configured and not older than the list of packages, which are
# all there then.
configured() {
    [ -f $build/build.ninja ] && command -v bwrap >/dev/null &&
        [ -z "$(find tools/packages.txt -newer $build/build.ninja)" ]
}

runs() {
    [ -e "$state/lock" ] && ! flock -n "$state/lock" true
}

build() {
    log=$build/run.log
    mkdir -p $build
    exec 9>$build/run.lock # builds of one tree take turns
    flock 9
    if ! configured; then
        device/enter --check >/dev/null
        echo "Building the console and the stand-in device ..." >&2
        tools/install-packages run </dev/null >&2
        quietly cmake --preset release
    fi
    quietly cmake --build $build --target wap-cli device_root
    exec 9>&-
}

# A device that runs keeps the programs that it was started with.
if ! runs; then
    build
elif [ -n "$factory" ]; then
    echo "run.sh: --factory: a device runs in $state; leave it first, or use --state" >&2
    exit 1
fi

mkdir -p "$state"
set -- --root $build/device/root --program $build/src/wap-cli --state "$state" \
    ${factory:+"$factory"}
if [ -n "$trace$record" ]; then
    exec $build/device/session/wap-session ${trace:+"$trace"} ${record:+--record "$record"} \
        --journal "$state/var/journal" -- device/enter --own-terminal "$@"
fi
exec device/enter "$@"
