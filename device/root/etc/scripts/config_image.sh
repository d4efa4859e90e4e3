# The configuration image: a header of 100 bytes, the settings as text, compressed. The header is
# the firmware's signature, a separator byte, and a line about this save, so images of the same
# settings differ in their headers only. Zeros fill the last block of flash. The console handles at
# most 10240 bytes, hence the strong compression: it is enough for full tables.

IMAGE_HEADER=100
IMAGE_BLOCK=1024

image_signature() { node /runtime/layout/image_sign; }

# write_image FILE: fails, with an empty FILE, when the settings cannot be read.
write_image() {
    signature=$(image_signature)
    saves=$(cat /var/run/saves 2>/dev/null)
    saves=$((saves + 1))
    echo $saves >/var/run/saves
    width=$((IMAGE_HEADER - ${#signature} - 2))
    rgdb -C - >/tmp/settings.$$ && {
        printf '%s\n' "$signature"
        printf "%-$width.${width}s\n" "save $saves, $(date '+%Y-%m-%d %H:%M:%S')"
        bzip2 </tmp/settings.$$
    } >"$1"
    status=$?
    rm -f /tmp/settings.$$
    [ $status -eq 0 ] || return $status
    fill=$((IMAGE_BLOCK - $(wc -c <"$1") % IMAGE_BLOCK))
    head -c $((fill % IMAGE_BLOCK)) /dev/zero >>"$1"
}

# load_image FILE: the image may lack signature and separator and end in zeros, as the console
# writes it back. It may lack read permission as well, which root needs here, without capabilities.
load_image() {
    chmod u+r "$1" || return
    signature=$(image_signature)
    header=$IMAGE_HEADER
    [ "$(head -c ${#signature} "$1" | tr '\0' ' ')" = "$signature" ] ||
        header=$((IMAGE_HEADER - ${#signature} - 1))
    tail -c +$((header + 1)) "$1" | bunzip2 >/tmp/image.$$ 2>/dev/null
    rgdb -q -l /tmp/image.$$ 2>/dev/null
    status=$?
    rm -f /tmp/image.$$
    return $status
}
