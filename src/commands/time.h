// The clock, the time server, the time zone and daylight saving time.
#pragma once

#include "commands/shared/rows.h"

#include <array>
#include <ctime>

// The words year, month, day, hour, minute and second; null for missing ones.
using CalendarWords = std::array<const char *, 6>;

// Converts a local date to calendar seconds. Missing fields are 0; ranges are not checked: a 13th
// month is the next year's first. False when the date cannot be represented.
bool calendar_seconds(const CalendarWords &words, std::time_t &seconds);

// Words YEAR MONTH DAY HOUR MINUTE SECOND, all but the year optional: sets the system clock. A
// failure is reported on standard error as "set time: " and the system's error text, and returns
// CLI_DONE.
CliHandler set_time;
CliHandler get_time;

// Days, hours, minutes and seconds since the device started.
CliHandler get_uptime;

// Word "enable", "disable" or ADDRESS; an address is saved and takes effect at once.
CliHandler set_time_server;

CliHandler get_time_server;

// Word ZONE, 1..75; saved, takes effect at once. A number out of range or a failed write is
// reported and returns CLI_DONE.
CliHandler set_time_zone;
CliHandler get_time_zone;

// Word STATE, 1 for on; saved, takes effect at once. A failed write is reported and returns
// CLI_DONE.
CliHandler set_daylight_saving;
CliHandler get_daylight_saving;

inline constexpr auto time_set_rows = command_rows({
    {"time", "Set time (year month day hour min sec)", set_time},
    {"sntpserver", "Set SNTP server", set_time_server},
    {"tzone", "Set time zone", set_time_zone},
    {"daylightsaving", "Set daylight saving time", set_daylight_saving},
});

inline constexpr auto time_get_rows = command_rows({
    {"time", "Display time", get_time},
    {"uptime", "Display AP uptime", get_uptime},
    {"sntpserver", "Display SNTP server", get_time_server},
    {"tzonelist", "Display time zone", get_time_zone},
    {"daylightsaving", "Display daylight saving time", get_daylight_saving},
});
