// The log: what is logged, and where it is sent and mailed.
#pragma once

#include "shell/command.h"

// `set syslog KEYWORD VALUE`, both as typed. Writes and saves the setting and reports the outcome.
// Refuses other numbers of words with its usage, unknown keywords, bad addresses, and silently
// every field of a mail profile while none is in use. Any other value that its keyword does not
// take is reported, but the command still counts as done: the mailing is reset and the radio marked
// for restart.
CliHandler set_syslog;

// `set testlog count N`: writes N entries into the system log, numbered from N down to 1; reports
// an N below 1. Refuses other words.
CliHandler set_testlog;

// Prints the settings and then the local log.
CliHandler get_syslog;

inline constexpr auto syslog_set_rows = command_rows({
    {"syslog", "Set system log and e-mail notification", set_syslog},
    {"testlog", "Set test entries into the system log", set_testlog, nullptr, DEBUG_TAG},
});

inline constexpr auto syslog_get_rows = command_rows({
    {"syslog", "Display system log and e-mail notification", get_syslog},
});
