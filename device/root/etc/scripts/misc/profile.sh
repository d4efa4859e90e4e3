#!/bin/busybox sh
# The device's settings as a whole.
#   profile.sh put            save them to flash
#   profile.sh reset          load the factory settings
#   profile.sh reset FILE     load a configuration image
. /etc/scripts/lib.sh
. /etc/scripts/config_image.sh

case $1 in
put)
    rgdb -q -w /flash/config.xml && did save the settings to flash
    ;;
reset)
    if [ $# -eq 1 ]; then
        rgdb -q -l /etc/factory.xml && did load the factory settings
    elif load_image "$2"; then
        did load the settings of "$2"
    else
        echo "profile.sh: $2: no configuration image" >&2
        exit 1
    fi
    ;;
*)
    echo "usage: profile.sh put | reset [FILE]" >&2
    exit 2
    ;;
esac
