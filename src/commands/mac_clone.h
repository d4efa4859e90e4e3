// The MAC address that the device presents instead of its own.
#pragma once

#include "commands/shared/rows.h"

// Word "disable", "auto" or "manual". Another is reported and returns CLI_DONE; a missing one is
// silently refused.
CliHandler set_clone_type;

// Word MAC. Returns CLI_DONE after reporting a malformed one, and silently without one.
CliHandler set_clone_address;

// An unknown number shows as disabled.
CliHandler get_clone_type;

inline constexpr auto mac_clone_set_rows = command_rows({
    {"macclonetype", "Set MAC address clone type", set_clone_type},
    {"maccloneaddr", "Set MAC clone address", set_clone_address},
});

inline constexpr auto mac_clone_get_rows = command_rows({
    {"macclonetype", "Display MAC address clone type", get_clone_type},
    {"maccloneaddr", "Display MAC clone address",
     show_text<"/wlan/inf:1/macclone/addr", "%s\n", 20>},
});
