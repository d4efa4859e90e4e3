// The log: what is logged, and where it is sent and mailed.
#pragma once

#include "shell/command.h"

// `set syslog KEYWORD VALUE`. A value that its keyword does not take is told, but mostly still
// counts as a handled command: the mailing is reset and the radio marked for restart.
int set_syslog(CliContext &cli, const char *word, CliCommand *subtable);

// `set testlog count N`: writes N entries into the system log, numbered from N down to 1.
int set_testlog(CliContext &cli, const char *word, CliCommand *subtable);

// Prints the settings and then the local log.
int get_syslog(CliContext &cli, const char *word, CliCommand *subtable);

inline constexpr auto syslog_set_rows = command_rows({
    {"syslog", "Set system log and e-mail notification", set_syslog},
    {"testlog", "Set test entries into the system log", set_testlog, nullptr, DEBUG_TAG},
});

inline constexpr auto syslog_get_rows = command_rows({
    {"syslog", "Display system log and e-mail notification", get_syslog},
});
