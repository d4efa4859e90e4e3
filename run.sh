#!/bin/sh
# Opens the console on the stand-in access point, after installing and building what is missing.
#
# usage: ./run.sh [--machine] [--factory] [--trace] [--record FILE] [--state DIRECTORY]
#        ./run.sh --ssh [--state DIRECTORY]
#
#   --machine  boot the device as a computer of its own, emulated, and open its serial line
#   --factory  start from the factory settings and forget the saved ones
#   --trace    show after each command what it wrote and which command lines it ran
#   --record   write the session to FILE as a transcript
#   --state    keep the device's files in DIRECTORY instead of .wap/state
#   --ssh      take an SSH connection on standard input and output, as a client's ProxyCommand:
#                  ssh -o ProxyCommand='./run.sh --ssh' admin@ap ['get ssid']
#   --help     show this
#
# If a device runs in that directory, this opens another session on it. Saved settings (set apply
# saves them) are loaded at the next start. Standard input may be a pipe; standard output has only
# what the console prints; the exit status is the console's.
set -eu

usage() {
    echo "usage: ./run.sh [--machine] [--factory] [--trace] [--record FILE] [--state DIRECTORY]" >&2
    echo "       ./run.sh --ssh [--state DIRECTORY]" >&2
    echo "       ./run.sh --help" >&2
    exit 2
}

absolute() {
    case $1 in
    /*) echo "$1" ;;
    *) echo "$PWD/$1" ;;
    esac
}

machine='' factory='' trace='' record='' state='' ssh=''
while [ $# -gt 0 ]; do
    case $1 in
    --help | -h)
        sed -n '/^# usage: /,/^[^#]/s/^# \{0,1\}//p' "$0"
        exit
        ;;
    --machine) machine=yes ;;
    --factory) factory=--factory ;;
    --trace) trace=--trace ;;
    --ssh) ssh=yes ;;
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

[ -z "$ssh" ] || [ -z "$machine$factory$trace$record" ] || usage

cd -P "$(dirname "$(readlink -f "$0")")"
build=build/release
: "${state:=$PWD/.wap/state}"

# Reads what a build prints. On a terminal, the latest line is shown in place, as progress. A last
# line "$failed" reports that the build failed; then all lines are shown.
show_build() {
    columns=''
    [ ! -t 2 ] || columns=$(stty size <&2 2>/dev/null | cut -d ' ' -f 2)
    [ "$columns" != 0 ] || columns=80
    log='' last=''
    while IFS= read -r line; do
        last=$line
        log="$log$line
"
        [ -z "$columns" ] || printf "\r%-$((columns - 1)).$((columns - 1))s" "$line" >&2
    done
    [ -z "$columns" ] || printf "\r%$((columns - 1))s\r" '' >&2
    if [ "$last" = "$failed" ]; then
        printf '%s' "$log" >&2
        exit 1
    fi
}

runs() {
    [ -e "$state/lock" ] && ! flock -n "$state/lock" true
}

compile() {
    if [ -n "$machine" ]; then
        device/machine/build && tools/build release --target wap-session
    else
        tools/build release --target wap-cli device_root
    fi
}

build() {
    [ -n "$machine" ] || [ -e $build/src/wap-cli ] || device/enter --check >/dev/null
    # shellcheck disable=SC2086 # words
    tools/install-packages run ${machine:+cross machine} </dev/null >&2
    if [ -n "$machine" ]; then
        [ -e build/machine/vmlinux ] ||
            echo "Building the console, and a kernel and busybox for it, some minutes ..." >&2
    elif [ ! -e $build/src/wap-cli ]; then
        echo "Building the console and the stand-in device ..." >&2
    fi
    failed="run.sh: the build failed"
    { compile </dev/null || echo "$failed"; } | show_build
}

# A running device keeps the programs that it was started with.
if ! runs; then
    build
elif [ -n "$factory" ]; then
    echo "run.sh: --factory: a device runs in $state; leave it first, or use --state" >&2
    exit 1
fi

mkdir -p "$state"
enter=device/enter
set -- --root $build/device/root --program $build/src/wap-cli
if [ -n "$machine" ]; then
    enter=device/machine/enter
    set -- --root build/machine/root
fi
set -- "$@" --state "$state" ${factory:+"$factory"}
if [ -n "$ssh" ]; then
    tools/install-packages ssh </dev/null >&2
    exec device/ssh "$@"
elif [ -n "$trace$record" ]; then
    exec $build/device/session/wap-session ${trace:+"$trace"} ${record:+--record "$record"} \
        ${machine:+--machine "$state/machine/link"} --journal "$state/var/journal" -- \
        $enter --own-terminal "$@"
fi
exec $enter "$@"
