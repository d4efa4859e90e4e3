// The wireless distribution system (WDS): peers of the radio, live links, site survey.
#pragma once

#include "commands/fixed_value.h"
#include "shell/dispatch.h"

// Words MAC INDEX, the index 1..4. Replaces what is there. Refuses other counts of words, what is
// no MAC address and one that is found, and says so; an index out of range is told, and returns 0.
int add_wds_peer(CliContext &cli, const char *word, CliCommand *subtable);

// Word INDEX, any number. Refuses other counts of words.
int delete_wds_peer(CliContext &cli, const char *word, CliCommand *subtable);

// Surveys the operating band.
int scan_wds(CliContext &cli, const char *word, CliCommand *subtable);

// Return 0; or -1 when memory ran out, and say so.
int get_wds_peers(CliContext &cli, const char *word, CliCommand *subtable);
int get_wds_links(CliContext &cli, const char *word, CliCommand *subtable);
int get_wds_survey(CliContext &cli, const char *word, CliCommand *subtable);

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
