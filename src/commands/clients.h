// Who is connected, and how much traffic passed.
#pragma once

#include "shell/command.h"

// Prints the wireless clients of the primary SSID and, when they are on, of the other SSIDs.
CliHandler get_client_info;

// Refreshes the counters of the ethernet port and prints them.
CliHandler get_ethernet_counters;

// Prints the counters of the first wireless interface. Returns the length of the last line.
CliHandler get_wlan_counters;

inline constexpr auto clients_get_rows = command_rows({
    {"clientinfo", "Display ClientInfo", get_client_info},
    {"ethernetcount", "Display ethernet count", get_ethernet_counters},
    {"wlancount", "Display wlan count", get_wlan_counters},
});
