#!/bin/busybox sh
# Scans for neighbouring access points: ap_scan.sh [g|a]. They are listed in /etc/neighbours;
# signals change a little from scan to scan.
. /etc/scripts/lib.sh

scans=$(node /runtime/wlan/inf:1/rogue_ap/scans)
scans=$((scans + 1))
del_node /runtime/wlan/inf:1/rogue_ap
{
    echo "/runtime/wlan/inf:1/rogue_ap/scans = $scans"
    n=0
    while read -r mac band channel rssi status ssid; do
        case $mac in '#'* | '') continue ;; esac
        n=$((n + 1))
        client=/runtime/wlan/inf:1/rogue_ap/client:$n
        echo "$client/mac = $mac"
        echo "$client/band = $band"
        echo "$client/channel = $channel"
        echo "$client/rssi = $((rssi + (scans - 1 + n) % 3))"
        echo "$client/status = $status"
        echo "$client/ssid = $ssid"
        echo "$client/time = $((60 * n))"
        echo "$client/type = 0"
    done </etc/neighbours
} | set_nodes
did "scan for access points${1:+ in band $1}"
