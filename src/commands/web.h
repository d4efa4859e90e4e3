// Web management, the association limit and IGMP snooping.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

// Word "enable" or "disable": starts or stops the server at once and saves the state. A wrong
// number of words and a failed write are reported and return CLI_DONE.
CliHandler set_web;

// Prints nothing after a failed read.
CliHandler get_web;

// Shows the state and number of the limit.
CliHandler get_assoc_limit;

inline constinit auto assoc_limit_rows = command_table({
    {"enable", "enable assoclimit",
     write_fixed<"/wlan/inf:%d/assoc_limit/enable", "1", APPLY_WLAN>},
    {"disable", "disable assoclimit",
     write_fixed<"/wlan/inf:%d/assoc_limit/enable", "0", APPLY_WLAN>},
    {"number", "assoclimit number (range:0--64)",
     write_in_range<"/wlan/inf:%d/assoc_limit/number", 0, 64, APPLY_WLAN,
                    "Wrong number! Cover range is 0~64.\n", CLI_REFUSED, "wrong number!\n">},
});

inline constexpr auto web_set_rows = command_rows({
    {"web", "Set web server (enable/disable)", set_web},
    family("assoclimit", "Set association limit", assoc_limit_rows),
    family("igmpsnoop", "Set IGMP snooping",
           switch_rows<"/wlan/inf:%d/igmpsnoop", APPLY_WLAN, "igmpsnoop">),
});

inline constexpr auto web_get_rows = command_rows({
    {"web", "Display web server", get_web},
    {"assoclimitstatus", "Display association limit", get_assoc_limit},
    {"igmpsnoop", "Display IGMP snooping",
     show_switch<"/wlan/inf:%d/igmpsnoop", "igmp snoop:%s\n">},
});
