// The accounts that the device mails its log and its renewed keys with: one for each profile of an
// SMTP server, 1 = internal, 2 = Gmail, 3 = Hotmail.
#pragma once

#include "config/value_buffer.h"

inline constexpr int MAIL_PROFILES = 3;

// Holds the number of the profile in use.
inline constexpr char MAIL_PROFILE_NODE[] = "/sys/log/smtpindex";

// Reads a field of a profile: "ssl", "authtype", "mailserver", "fromemail", "toemail",
// "username", "pass1" or "mailport". Takes any number, as it may stand in the profile's node.
// Returns what cfg_get does.
int read_mail_field(ReadTarget target, int profile, const char *field);

// Writes a field of a profile. Returns what cfg_set does.
int write_mail_field(int profile, const char *field, const char *value);

// Has the rekeying service mail anew: sets its run-time mark of the first key back to 0.
void reset_first_rekey();
