// The channel, the channels that may be used, and the country that decides it.
#pragma once

#include "shell/command.h"
#include "shell/dispatch.h"

struct Country {
    const char *keyword; // null: shown, but no word sets it
    const char *help;
    int code; // ISO 3166 numeric
    const char *name;
};

inline constexpr int COUNTRY_ISRAEL = 376;
inline constexpr int COUNTRY_JAPAN = 392;

inline constexpr Country SETTABLE_COUNTRIES[] = {
    {"AU", "country Australia", 36, "AU"},
    {"CN", "country China", 156, "CN"},
    {"GB", "country EU", 826, "GB"},
    {"IL", "country Israel", COUNTRY_ISRAEL, "IL"},
    {"JP", "country Japan", COUNTRY_JAPAN, "JP"},
    {"KR", "country Korea", 410, "KR"},
    {"LA", "country Latin America", 777, "LA"},
    {"SG", "country Singapore", 702, "SG"},
    {"TW", "country Taiwan", 158, "TW"},
    {"US", "country USA", 840, "US"},
    {"CA", "country Canada", 124, "CA"},
    {"RU", "country Russia", 643, "RU"},
    {"BR", "country Brazil", 76, "BR"},
    {"EG", "country Egypt", 818, "EG"},
    {"DB", "country for HW DEBUG", 511, "DB"},
};

// The regulatory country's code, from the first three bytes of its node.
int read_country_code();

// Writes the channel when the band's run-time table holds it; else says why and lists the
// channels.
int set_channel(CliContext &cli, const char *word, CliCommand *subtable);
int get_available_channels(CliContext &cli, const char *word, CliCommand *subtable);
int set_country(CliContext &cli, const char *word, CliCommand *subtable);
int get_country(CliContext &cli, const char *word, CliCommand *subtable);

inline constinit auto country_rows =
    command_table_of(SETTABLE_COUNTRIES, [](const Country &country) {
        return CliCommand{country.keyword, country.help, set_country};
    });

inline constexpr auto channel_set_rows = command_rows({
    {"channel", "Set channel", set_channel},
    {"country", "Set country", dispatch_subtable, country_rows.data()},
});

inline constexpr auto channel_get_rows = command_rows({
    {"availablechannel", "Display available channel", get_available_channels},
    {"country", "Display country", get_country},
});
