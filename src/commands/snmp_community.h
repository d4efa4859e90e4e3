// The communities of SNMP v1 and v2c: the public and the private one, and those that see one view.
#pragma once

#include "shell/command.h"

// A wrong number of words is refused with the usage. A change is saved at once, and the agent
// marked for a restart.

// Words NAME VIEW TYPE: names of at most 32 characters, TYPE a number up to 2. The view must exist
// and the name must not. Refused when the table is full.
CliHandler add_snmp_community;

// Word NAME, in the table: not the public or the private one.
CliHandler delete_snmp_community;

// Lists the two fixed communities and the table, up to a row of a type other than 1 and 2.
CliHandler show_snmp_communities;

// Word NAME, of at most 32 characters. Refused when the write fails.
CliHandler edit_public_community;
CliHandler edit_private_community;

inline constexpr auto snmp_community_snmp_rows = command_rows({
    {"addcomm", "Add SNMP community", add_snmp_community},
    {"delcomm", "Delete SNMP community", delete_snmp_community},
    {"showcomm", "Display SNMP communities", show_snmp_communities},
    {"editpubliccomm", "Edit SNMP public community", edit_public_community},
    {"editprivatecomm", "Edit SNMP private community", edit_private_community},
});
