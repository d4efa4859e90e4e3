// The SNMP agent's state, and its traps: whether, where to and in which version they are sent.
#pragma once

#include "commands/shared/rows.h"
#include "commands/shared/snmp_table.h"
#include "config/apply.h"

// The setters take one word; a wrong number of words is refused with the usage.

// A word that begins with "enable" or "disable"; refuses others with the usage.
CliHandler set_snmp_trap;

// Any text. Without a word it deletes the trap server, and is then refused.
CliHandler set_snmp_trap_server;

// 1 or 2; another changes nothing, but still marks the agent for a restart.
CliHandler set_snmp_trap_version;

// Print nothing for unknown numbers, nor, the first two, when there are words.
CliHandler show_snmp_trap;
CliHandler show_snmp_trap_server;
CliHandler show_snmp_trap_version;

// "enable" or "disable". Writes the node of set_snmp_trap and saves the configuration. Refused when
// the write fails.
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
