// The clock, the time server, the time zone and daylight saving time.
#pragma once

#include "commands/shared/rows.h"

#include <array>
#include <ctime>

// The words year, month, day, hour, minute and second; null where none was typed.
using CalendarWords = std::array<const char *, 6>;

// Converts a date of local time to calendar seconds. Missing fields are 0; ranges are not checked,
// so that a 13th month is the next year's first. Returns false when the date cannot be represented.
bool calendar_seconds(const CalendarWords &words, std::time_t &seconds);

// `set time YEAR MONTH DAY HOUR MINUTE SECOND`, all but the year optional; sets the system clock. A
// failure is reported on standard error as "set time: " and the system's error text, and returns
// CLI_DONE. Refuses only an empty line.
CliHandler set_time;
CliHandler get_time;

// Days, hours, minutes and seconds since the start.
CliHandler get_uptime;

// `set sntpserver enable|disable|ADDRESS`; an address is saved and takes effect at once. Refuses
// other words and other numbers of them.
CliHandler set_time_server;

CliHandler get_time_server;

// `set tzone 1..75`; saved, takes effect at once. Refuses other numbers of words; a number out of
// range or a failed write is reported and returns CLI_DONE.
CliHandler set_time_zone;
CliHandler get_time_zone;

// `set daylightsaving STATE`, any one word, 1 being on; saved, takes effect at once. Refuses other
// numbers of words; a failed write is reported and returns CLI_DONE.
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
