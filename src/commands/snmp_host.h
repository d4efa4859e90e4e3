// The hosts that the SNMP agent sends its traps to.
#pragma once

#include "shell/command.h"

// The community or the user of the new host also becomes the public community.
int add_snmp_host(CliContext &cli, const char *word, CliCommand *subtable);
int delete_snmp_host(CliContext &cli, const char *word, CliCommand *subtable);
int show_snmp_hosts(CliContext &cli, const char *word, CliCommand *subtable);

// Sends a warm-start trap to every host, unless the agent or its traps are off.
int send_snmp_trap(CliContext &cli, const char *word, CliCommand *subtable);

inline constexpr auto snmp_host_snmp_rows = command_rows({
    {"addhost", "Add SNMP trap host", add_snmp_host},
    {"delhost", "Delete SNMP trap host", delete_snmp_host},
    {"showhost", "Display SNMP trap hosts", show_snmp_hosts},
    {"sendtrap", "Send SNMP warm start trap", send_snmp_trap, nullptr, DEBUG_TAG},
});
