// The MAC address that the device presents in place of its own.
#pragma once

#include "commands/fixed_value.h"

int set_clone_type(CliContext &cli, const char *word, CliCommand *subtable);
int set_clone_address(CliContext &cli, const char *word, CliCommand *subtable);
int get_clone_type(CliContext &cli, const char *word, CliCommand *subtable);

inline constexpr auto mac_clone_set_rows = command_rows({
    {"macclonetype", "Set MAC address clone type", set_clone_type},
    {"maccloneaddr", "Set MAC clone address", set_clone_address},
});

inline constexpr auto mac_clone_get_rows = command_rows({
    {"macclonetype", "Display MAC address clone type", get_clone_type},
    {"maccloneaddr", "Display MAC clone address",
     show_text<"/wlan/inf:1/macclone/addr", "%s\n", 20>},
});
