// The channel, the channels that the country allows, and the country.
#pragma once

#include "commands/shared/wireless_numbers.h"
#include "shell/command.h"
#include "shell/dispatch.h"

#include <optional>

struct Country {
    char name[3]; // also the word that sets it
    char help[22];
    int code; // ISO 3166 numeric
};

inline constexpr Country SETTABLE_COUNTRIES[] = {
    {"AU", "country Australia", 36},
    {"CN", "country China", 156},
    {"GB", "country EU", 826},
    {"IL", "country Israel", COUNTRY_ISRAEL},
    {"JP", "country Japan", COUNTRY_JAPAN},
    {"KR", "country Korea", 410},
    {"LA", "country Latin America", 777},
    {"SG", "country Singapore", 702},
    {"TW", "country Taiwan", 158},
    {"US", "country USA", 840},
    {"CA", "country Canada", 124},
    {"RU", "country Russia", 643},
    {"BR", "country Brazil", 76},
    {"EG", "country Egypt", 818},
    {"DB", "country for HW DEBUG", 511},
};

// The regulatory country's code, from the first three bytes of its node; nothing when that could
// not be read.
std::optional<int> read_country_code();

// Word CHANNEL, stored as typed when the band's run-time table has it. Otherwise reports why, lists
// the channels and returns CLI_DONE.
CliHandler set_channel;

// Prints the country, regenerates the run-time tables and prints them for both bands.
CliHandler get_available_channels;

// Sets the country of the row that was typed.
CliHandler set_country;

CliHandler get_country;

inline constinit auto country_rows =
    command_table_of(SETTABLE_COUNTRIES, [](const Country &country) {
        return CliCommand{country.name, country.help, set_country};
    });

inline constexpr auto channel_set_rows = command_rows({
    {"channel", "Set channel", set_channel},
    family("country", "Set country", country_rows),
});

inline constexpr auto channel_get_rows = command_rows({
    {"availablechannel", "Display available channel", get_available_channels},
    {"country", "Display country", get_country},
});
