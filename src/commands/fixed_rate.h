// The transmit rate of a radio, fixed or left automatic.
#pragma once

#include "shell/dispatch.h"

struct FixedRate {
    char word[5];
    char help[15];
    int code_2g; // on the 2.4 GHz radio
    int code_5g; // on the 5 GHz radio, which has no CCK rates
};

inline constexpr int NO_RATE_CODE = -1;

inline constexpr FixedRate FIXED_RATES[] = {
    {"auto", "fixrdrate auto", 31, 31}, // spelt so
    {"54M", "fixrdrate 54M", 11, 7},
    {"48M", "fixrdrate 48M", 10, 6},
    {"36M", "fixrdrate 36M", 9, 5},
    {"24M", "fixrdrate 24M", 8, 4},
    {"18M", "fixrdrate 18M", 7, 3},
    {"12M", "fixrdrate 12M", 6, 2},
    {"9M", "fixrdrate 9M", 5, 1},
    {"6M", "fixrdrate 6M", 4, 0},
    {"11M", "fixrdrate 11M", 3, NO_RATE_CODE},
    {"5.5M", "fixrdrate 5.5M", 2, NO_RATE_CODE},
    {"2M", "fixrdrate 2M", 1, NO_RATE_CODE},
    {"1M", "fixrdrate 1M", 0, NO_RATE_CODE},
};

// Writes the row's code for the current radio. A rate that the radio does not have is silently not
// written, but the radio is still marked for a restart.
CliHandler set_fixed_rate;

// Prints the rate's word; for an unknown code, the radio's lowest rate.
CliHandler get_fixed_rate;

inline constinit auto fixed_rate_rows = command_table_of(FIXED_RATES, [](const FixedRate &rate) {
    return CliCommand{rate.word, rate.help, set_fixed_rate};
});

inline constexpr auto fixed_rate_set_rows = command_rows({
    family("fixedrate", "Set Fixed Rate", fixed_rate_rows),
});

inline constexpr auto fixed_rate_get_rows = command_rows({
    {"fixedrate", "Display Fixed Rate", get_fixed_rate},
});
