# Transfers of the TFTP and FTP tools. The directory /server holds the files of every server.

# fail TEXT...: prints an error in the tool's name and ends it.
fail() {
    echo "${0##*/}: $*"
    exit 1
}

# fetch FILE LOCAL
fetch() {
    [ -f "/server/$1" ] || fail "server error: file not found: $1"
    cp "/server/$1" "$2" || fail "cannot write $2"
}

# send LOCAL FILE
send() {
    cp "$1" "/server/$2" 2>/dev/null || fail "cannot send $1"
}

get_config() {
    fetch "$1" /var/received.bin
    /etc/scripts/misc/profile.sh reset /var/received.bin 2>/dev/null ||
        fail "$1 is no configuration of this device"
    /etc/scripts/misc/profile.sh put
    echo "${0##*/}: configuration $1 loaded, please reboot the device"
}

put_config() {
    /usr/sbin/sys -s configsave
    send /var/config.bin "$1"
    rm -f /var/config.bin
    echo "${0##*/}: configuration sent as $1"
}

# The image is not flashed, but a reboot runs the update's script as if it had been.
get_firmware() {
    fetch "$1" /var/firmware.bin
    size=$(wc -c </var/firmware.bin)
    rm -f /var/firmware.bin
    set_node /runtime/update/fwimage/status 1
    echo "echo 'The new firmware would start now.'" >/var/run/reboot
    did "write the firmware $1 of $size bytes"
    echo "${0##*/}: firmware $1 written, please reboot the device"
}

# transfer ACTION HOST FILE [LOCAL]: the action is the letter of the tool's option.
transfer() {
    case $2 in
    *[!0-9.]* | '') fail "bad address '$2'" ;;
    esac
    case $3 in
    '' | */* | . | ..) fail "server error: bad file name '$3'" ;;
    esac
    case $1 in
    d) get_config "$3" ;;
    f) get_firmware "$3" ;;
    t) put_config "$3" ;;
    g) fetch "$3" "$4" ;;
    p) send "$4" "$3" ;;
    esac
}
