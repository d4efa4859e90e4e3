// The rate of multicast frames, an index into the rates of the wireless mode.
#pragma once

#include "shell/dispatch.h"

// Word INDEX, stored as typed when the wireless mode has it. Otherwise the usage is printed and the
// result is CLI_DONE.
CliHandler set_mcast_rate_2g;
CliHandler set_mcast_rate_5g;

// Prints the rate of the operating band.
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
