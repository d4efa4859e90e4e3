// The SNMP agent's run state, and its traps: whether they are sent, where to, in which version.
#pragma once

#include "commands/shared/rows.h"
#include "commands/shared/snmp_table.h"
#include "config/apply.h"

// The setters take one word and refuse other counts with their usage.

// A word that begins with "enable" or "disable"; refuses others with the usage.
CliHandler set_snmp_trap;

// Any text. Without a word deletes the trap server, and then complains about the missing word.
CliHandler set_snmp_trap_server;

// 1 or 2; other numbers change nothing, but are marked for apply all the same.
CliHandler set_snmp_trap_version;

// Show nothing for numbers without a meaning, and the first two when there is any word.
CliHandler show_snmp_trap;
CliHandler show_snmp_trap_server;
CliHandler show_snmp_trap_version;

// "enable" or "disable". Writes the node of set_snmp_trap, and saves it at once. Other words and a
// failed write are reported and refused.
CliHandler set_snmp_auth_trap;

// "Suspended" for 0, else "Active".
const char *snmp_agent_state_name(int number);

inline constexpr FixedText PLEASE_APPLY("Please set apply to take effect\n");

inline constexpr auto snmp_trap_snmp_rows = command_rows({
    {"status", "Display SNMP agent status",
     show_name<SNMP_STATUS, "SNMP Agent Status: %s.\n", snmp_agent_state_name, NO_ENOUGH_MEMORY>},
    {"suspend", "Suspend SNMP agent",
     write_fixed<SNMP_STATUS, "0", APPLY_SNMP,
                 FixedText("SNMP Agent Status: Suspended.\n") + PLEASE_APPLY>},
    {"resume", "Resume SNMP agent",
     write_fixed<SNMP_STATUS, "1", APPLY_SNMP,
                 FixedText("SNMP Agent Status: Resume.\n") + PLEASE_APPLY>},
    {"settrap", "Set SNMP trap status", set_snmp_trap},
    {"settrapServerIp", "Set SNMP trap server ip", set_snmp_trap_server},
    {"settrapVersion", "Set SNMP trap version", set_snmp_trap_version},
    {"showtrap", "Display SNMP trap status", show_snmp_trap},
    {"showtrapServerIp", "Display SNMP trap server ip", show_snmp_trap_server},
    {"showtrapVersion", "Display SNMP trap version", show_snmp_trap_version},
    {"authtrap", "Set SNMP authentication trap", set_snmp_auth_trap, nullptr, DEBUG_TAG},
});
