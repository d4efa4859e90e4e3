// The firmware version, the device's name and location, and the answering of pings.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

// Shows the four version fields.
CliHandler get_runtime;

inline constexpr ValueSetter LOCATION{
    .path = "/sys/systemLocation",
    .rule = {ValueKind::Text, 0, 32, " Location Data too long.\n"},
    .apply_bits = APPLY_WAN,
    .error_line = "ERROR: Unable to set Location Data.\n",
};
inline constexpr ValueSetter SYSTEM_NAME{
    .path = "/sys/systemname",
    .rule = {ValueKind::Text, 0, 32, " Name too long.\n"},
    .apply_bits = APPLY_WAN,
    .error_line = "ERROR: Unable to set system Name.\n",
};

// `version` and `mem`.
inline constexpr CliHandler *show_version =
    show_text<"/runtime/sys/info/firmwareversion", "\n SOFTWARE_VERSION: %s\n", 200>;
inline constexpr CliHandler *show_memory = show_output<"free", "%s\n", 255>;

// Stored inverted: 0 answers pings. Deliberate.
inline constinit auto ping_control_rows = command_table({
    {"enable", "Set Ping Control Enabled",
     write_fixed<"/sys/pingctl", "0", APPLY_WAN, "Ping Control: Enable\n">},
    {"disable", "Set Ping Control Disabled",
     write_fixed<"/sys/pingctl", "1", APPLY_WAN, "Ping Control: Disable\n">},
});

inline constexpr auto identity_set_rows = command_rows({
    {"location", "Set Location Data", set_value<LOCATION>},
    {"systemname", "Set System Name", set_value<SYSTEM_NAME>},
    family("pingctl", "Set Ping Control", ping_control_rows),
});

inline constexpr auto identity_get_rows = command_rows({
    {"runtime", "Display runtime code version", get_runtime, nullptr, HIDDEN_TAG},
    {"location", "Get Location string", run_fixed<"rgdb -g /sys/systemLocation">},
    {"systemname", "Get System Name", run_fixed<"rgdb -g /sys/systemname">},
    {"hostname", "Get System Name", run_fixed<"rgdb -g /sys/hostname">, nullptr, DEBUG_TAG},
    {"pingctl", "Ping Control",
     show_numbered_line<"/sys/pingctl", "Ping Control: Enable\n", "Ping Control: Disable\n">},
});
