// The log: what is logged, and where it is sent or mailed.
#pragma once

#include "shell/command.h"

// Words KEYWORD VALUE. Writes and saves the setting and reports the outcome. Refuses a wrong number
// of words with the usage, unknown keywords, bad addresses and, silently, fields of a mail profile
// while none is in use. Any other bad value is reported, but the mailing is still reset and the
// radio marked for a restart.
CliHandler set_syslog;

// Words "count" N: writes N entries into the system log, numbered from N down to 1; reports an N
// below 1.
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
