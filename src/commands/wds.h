// The wireless distribution system (WDS): peers of the radio, live links, site survey.
#pragma once

#include "commands/shared/rows.h"
#include "shell/dispatch.h"

// Words MAC INDEX, the index 1..4. Replaces that peer. Refuses a wrong number of words, an invalid
// MAC address and one that is already listed. An index out of range is reported and returns 0.
CliHandler add_wds_peer;

// Word INDEX, any number. Refuses a wrong number of words.
CliHandler delete_wds_peer;

// Surveys the operating band.
CliHandler scan_wds;

// Return 0; or -1 after the message when memory ran out.
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
