#!/bin/busybox sh
# Gives each access point that the scan found the type under which the administrator classified it.
. /etc/scripts/lib.sh

type_of() {
    j=1
    while classified=$(node "/wlan/inf:1/rogue_ap/client:$j/mac") && [ -n "$classified" ]; do
        if [ "$classified" = "$1" ]; then
            node "/wlan/inf:1/rogue_ap/client:$j/type"
            return
        fi
        j=$((j + 1))
    done
    echo 0
}

k=1
while mac=$(node "/runtime/wlan/inf:1/rogue_ap/client:$k/mac") && [ -n "$mac" ]; do
    echo "/runtime/wlan/inf:1/rogue_ap/client:$k/type = $(type_of "$mac")"
    k=$((k + 1))
done | set_nodes
did "classify the access points${1:+ in band $1}"
