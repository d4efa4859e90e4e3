// Renewing the SSIDs' keys on a schedule and mailing them to the administrator.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

// The setters print their usage for wrong words and return CLI_DONE.

// Words HOURS DAY TIME: HOURS begins with a digit and is 1..168, DAY and TIME are any text.
CliHandler set_rekey_time;

// Words SSID STATE: SSID 0 is the primary one, 1..7 are slots; STATE is 0 or 1.
CliHandler set_rekey_ssid;

// Words PROFILE AUTH SSL SERVER FROM TO USER PASSWORD PORT: PROFILE 1..3, AUTH and SSL 0 or 1. A
// wrong AUTH or SSL keeps what was written before it.
CliHandler set_rekey_mail;

// Shows the schedule and the current keys.
CliHandler get_rekey;

// Shows the mail profile in use.
CliHandler get_rekey_mail;

inline constinit auto autorekey_rows = command_table({
    {"time", "set autorekey change time", set_rekey_time},
    {"ssid", "set autorekey ssid", set_rekey_ssid},
    {"mailenable", "set autorekey mail enable",
     write_fixed<"/security/log/smtpInfo", "1", APPLY_WLAN>},
    {"maildisable", "set autorekey mail disable",
     write_fixed<"/security/log/smtpInfo", "0", APPLY_WLAN>},
    {"mail", "set autorekey mail", set_rekey_mail},
});

inline constexpr auto autorekey_set_rows = command_rows({
    family("autorekey", "Set autorekey enable", autorekey_rows),
});

inline constexpr auto autorekey_get_rows = command_rows({
    {"autorekey", "Display autorekey", get_rekey},
    {"autorekey_smtp", "Display autorekey", get_rekey_mail},
});
