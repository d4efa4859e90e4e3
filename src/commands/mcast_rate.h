// The rate of multicast frames, an index into the rates that the wireless mode has.
#pragma once

#include "shell/dispatch.h"

// Store the one word as the band's index, as typed, when the wireless mode has that index.
// Otherwise print the usage and return CLI_DONE all the same.
CliHandler set_mcast_rate_2g;
CliHandler set_mcast_rate_5g;

// Prints the rate of the band that the device runs.
CliHandler get_mcast_rate;

inline constinit auto mcast_rate_rows = command_table({
    {"2.4G_Band", "set 2.4G Band", set_mcast_rate_2g},
    {"5G_Band", "set 5G Band", set_mcast_rate_5g},
});

inline constexpr auto mcast_rate_set_rows = command_rows({
    family("mcastrate", "Set mcast rate", mcast_rate_rows),
});

inline constexpr auto mcast_rate_get_rows = command_rows({
    {"mcastrate", "Display mcast rate", get_mcast_rate},
});
