// The wireless distribution system (WDS): peers of the radio, live links, site survey.
#pragma once

#include "commands/shared/fixed_value.h"
#include "shell/dispatch.h"

// Words MAC INDEX, the index 1..4. Replaces what is there. Refuses other counts of words, what is
// no MAC address and one that is found, and says so; an index out of range is told, and returns 0.
CliHandler add_wds_peer;

// Word INDEX, any number. Refuses other counts of words.
CliHandler delete_wds_peer;

// Surveys the operating band.
CliHandler scan_wds;

// Return 0; or -1 when memory ran out, and say so.
CliHandler get_wds_peers;
CliHandler get_wds_links;
CliHandler get_wds_survey;

inline constexpr auto wds_set_rows = command_rows({
    {"wdsmacadd", "Set WDS MAC address <xx:xx:xx:xx:xx:xx> [index:1--4]", add_wds_peer},
    {"wdsmacdel", "Delete WDS MAC address [index:1--4]", delete_wds_peer},
    {"wdsscan", "Set WDS site survey", scan_wds},
});

inline constexpr auto wds_get_rows = command_rows({
    {"wdsmac", "Display WDS MAC address", get_wds_peers},
    {"wdsinfo", "Display WDS link information", get_wds_links},
    {"wdsscaninfo", "Display WDS site survey", get_wds_survey},
});
