// The wireless distribution system (WDS): the radio's peers, live links and site survey.
#pragma once

#include "commands/shared/rows.h"
#include "shell/dispatch.h"

// Words MAC INDEX, INDEX 1..4: replaces that peer. Refused when the address is already listed. An
// index out of range is reported and returns CLI_DONE.
CliHandler add_wds_peer;

// Word INDEX, any number.
CliHandler delete_wds_peer;

// Surveys the operating band.
CliHandler scan_wds;

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
