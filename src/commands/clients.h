// Who is connected, and how much traffic passed.
#pragma once

#include "shell/command.h"

// All return -1 after "memory error!".

// Prints the wireless clients of the primary SSID and, when they are on, of the other SSIDs.
int get_client_info(CliContext &cli, const char *word, CliCommand *subtable);

// Brings the counters of the ethernet port up to date and prints them.
int get_ethernet_counters(CliContext &cli, const char *word, CliCommand *subtable);

// Prints the counters of the first wireless interface. Returns the length of the last line.
int get_wlan_counters(CliContext &cli, const char *word, CliCommand *subtable);

inline constexpr auto clients_get_rows = command_rows({
    {"clientinfo", "Display ClientInfo", get_client_info},
    {"ethernetcount", "Display ethernet count", get_ethernet_counters},
    {"wlancount", "Display wlan count", get_wlan_counters},
});
