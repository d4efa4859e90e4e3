// The hosts that the SNMP agent sends its traps to.
#pragma once

#include "shell/command.h"

// Each ends without a word of its own when a table cannot be read. A change is saved at once, and
// the agent marked for a restart.

// Words ADDRESS VERSION AUTH NAME: VERSION 1..3; AUTH up to 3, not 0 for version 3, and not above 0
// else; NAME, of at most 32 characters, a community that exists or, for version 3, a user who does
// not. NAME also becomes the public community. Refuses anything else, an address that is taken and
// a full table, and says so.
CliHandler add_snmp_host;

// Word ADDRESS. Refuses what is none or not in the table, and says so.
CliHandler delete_snmp_host;

// Lists the table; an empty one is told and refused. Words are ignored.
CliHandler show_snmp_hosts;

// Sends a warm-start trap to every host. An empty table is told and refused; that the agent or its
// traps are off is told. Words are ignored.
CliHandler send_snmp_trap;

inline constexpr auto snmp_host_snmp_rows = command_rows({
    {"addhost", "Add SNMP trap host", add_snmp_host},
    {"delhost", "Delete SNMP trap host", delete_snmp_host},
    {"showhost", "Display SNMP trap hosts", show_snmp_hosts},
    {"sendtrap", "Send SNMP warm start trap", send_snmp_trap, nullptr, DEBUG_TAG},
});
