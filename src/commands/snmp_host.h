// The hosts that the SNMP agent sends its traps to.
#pragma once

#include "shell/command.h"

// A wrong number of words is refused with the usage. A change is saved at once, and the agent
// marked for a restart.

// Words ADDRESS VERSION AUTH NAME, for VERSION 1 and 2 with an AUTH of at most 0 and a community
// that exists, for VERSION 3 with an AUTH of at most 3 but not 0 and a user who does not exist.
// NAME has at most 32 characters, and also becomes the public community. Refused when the address
// is taken or the table is full.
CliHandler add_snmp_host;

// Word ADDRESS, in the table.
CliHandler delete_snmp_host;

// Lists the table; refused when it is empty.
CliHandler show_snmp_hosts;

// Sends a warm-start trap to every host. Refused when there is none; that the agent or traps are
// off is only reported.
CliHandler send_snmp_trap;

inline constexpr auto snmp_host_snmp_rows = command_rows({
    {"addhost", "Add SNMP trap host", add_snmp_host},
    {"delhost", "Delete SNMP trap host", delete_snmp_host},
    {"showhost", "Display SNMP trap hosts", show_snmp_hosts},
    {"sendtrap", "Send SNMP warm start trap", send_snmp_trap, nullptr, DEBUG_TAG},
});
