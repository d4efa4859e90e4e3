// The mail accounts for the log and for renewed keys, one for each profile of an SMTP server: 1 =
// internal, 2 = Gmail, 3 = Hotmail.
#pragma once

#include "config/value_buffer.h"

inline constexpr int MAIL_PROFILES = 3;

// Holds the number of the profile in use.
inline constexpr char MAIL_PROFILE_NODE[] = "/sys/log/smtpindex";

// Reads a field of a profile: "ssl", "authtype", "mailserver", "fromemail", "toemail", "username",
// "pass1" or "mailport". Takes any number, since MAIL_PROFILE_NODE may hold any. Returns what
// cfg_get does.
int read_mail_field(ReadTarget target, int profile, const char *field);

// Writes a field of a profile. Returns what cfg_set does.
int write_mail_field(int profile, const char *field, const char *value);

// Makes the rekeying service mail again, by resetting its run-time mark of the first key.
void reset_first_rekey();
