// The hosts that the SNMP agent sends its traps to.
#pragma once

#include "shell/command.h"

// Each ends without a word of its own when a table cannot be read. A change is saved at once, and
// the agent marked for a restart.

// Words ADDRESS VERSION AUTH NAME: VERSION 1..3; AUTH up to 3, not 0 for version 3, and not above 0
// else; NAME, of at most 32 characters, a community that exists or, for version 3, a user who does
// not. NAME also becomes the public community. Refuses anything else, an address that is taken and
// a full table, and says so.
int add_snmp_host(CliContext &cli, const char *word, CliCommand *subtable);

// Word ADDRESS. Refuses what is none or not in the table, and says so.
int delete_snmp_host(CliContext &cli, const char *word, CliCommand *subtable);

// Lists the table; an empty one is told and refused. Words are ignored.
int show_snmp_hosts(CliContext &cli, const char *word, CliCommand *subtable);

// Sends a warm-start trap to every host. An empty table is told and refused; that the agent or its
// traps are off is told. Words are ignored.
int send_snmp_trap(CliContext &cli, const char *word, CliCommand *subtable);

inline constexpr auto snmp_host_snmp_rows = command_rows({
    {"addhost", "Add SNMP trap host", add_snmp_host},
    {"delhost", "Delete SNMP trap host", delete_snmp_host},
    {"showhost", "Display SNMP trap hosts", show_snmp_hosts},
    {"sendtrap", "Send SNMP warm start trap", send_snmp_trap, nullptr, DEBUG_TAG},
});
