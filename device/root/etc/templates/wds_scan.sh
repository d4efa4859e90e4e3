#!/bin/busybox sh
# Surveys the band for WDS peers: wds_scan.sh g|a.
. /etc/scripts/lib.sh

survey=/runtime/wlan/inf:1/wdslistinfo
scans=$(node $survey/scans)
scans=$((scans + 1))

# result NUMBER CHANNEL MAC SIGNAL AUTHENTICATION WDS-MODE SSID
result() {
    echo "$survey/wdsscan:$1/chan = $2"
    echo "$survey/wdsscan:$1/mac = $3"
    echo "$survey/wdsscan:$1/rssi = $(($4 + scans % 3))"
    echo "$survey/wdsscan:$1/auth = $5"
    echo "$survey/wdsscan:$1/wdsmode = $6"
    echo "$survey/wdsscan:$1/ssid = $7"
}

del_node $survey
{
    echo "$survey/scans = $scans"
    if [ "$1" = a ]; then
        result 1 36 00:1a:2b:30:40:11 58 WPA2-PSK WDS Bridge-East-5G
        result 2 149 00:1a:2b:30:40:12 49 OPEN AP Yard-5G
    else
        result 1 6 00:1a:2b:30:40:01 63 WPA2-PSK WDS Bridge-East
        result 2 11 00:1a:2b:30:40:02 51 OPEN WDS Bridge-West
        result 3 1 00:1a:2b:30:40:03 35 WEP AP Yard
    fi
} | set_nodes
did "survey band ${1:-g} for WDS peers"
