#!/bin/busybox sh
# Restarts the radio: the configured values come into use, for the configured country.
. /etc/scripts/lib.sh

# The channels in use: those configured, or with automatic selection a quiet one.
channel_in_use() {
    if [ "$(node /wlan/inf:1/autochannel)" != 1 ]; then
        node /wlan/inf:1/channel
    elif [ "$(node /wlan/ch_mode)" = 1 ]; then
        echo 44
    else
        echo 6
    fi
}

is_on_air() {
    [ "$(node "/wlan/inf:$1/enable")" = 1 ] && [ "$(node /wlan/ch_mode)" = $(($1 - 1)) ]
}

# The clients of a radio that is off the air are kept in a file.
move_clients() {
    away=/var/run/clients.$1
    if is_on_air "$1"; then
        [ ! -e "$away" ] || set_nodes <"$away"
        rm -f "$away"
    elif [ ! -e "$away" ]; then
        list="^/runtime/stats/wlan/inf:$1/\(client\|mssid\|wds\):[0-9]*"
        rgdb -D - | grep "$list/" >"$away"
        grep -o "$list" "$away" | sort -u | while read -r instance; do
            del_node "$instance"
        done
    fi
}

set_node /runtime/wireless/setting/status 0
genchanneltable
channel=$(channel_in_use)
{
    for radio in 1 2; do
        echo "/runtime/stats/wlan/inf:$radio/channel = $channel"
        echo "/runtime/wlan/inf:$radio/wpa/wpapsk = $(node "/wlan/inf:$radio/wpa/wpapsk")"
        for slot in 1 2 3; do
            slot_path=/wlan/inf:$radio/multi/index:$slot/passphrase
            echo "/runtime$slot_path = $(node $slot_path)"
        done
    done
    echo "/runtime/wireless/setting/status = 1"
} | set_nodes
move_clients 1
move_clients 2
did "${1:-refresh} wlan"
