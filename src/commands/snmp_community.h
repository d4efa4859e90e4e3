// The communities of SNMP v1 and v2c: the public and the private one, and those of a view each.
#pragma once

#include "shell/command.h"

// Each but the listing refuses other counts of words with its usage. A change is saved at once, and
// the agent marked for a restart. A table that cannot be read ends the command silently.

// Words NAME VIEW TYPE: names of at most 32 characters, TYPE a number up to 2. The view must exist
// and the name must not. Anything else and a full table are reported and refused.
CliHandler add_snmp_community;

// Word NAME, never the public or the private one. What is not in the table is reported and
// refused.
CliHandler delete_snmp_community;

// Lists the two fixed communities and the table, up to a row of a type other than 1 and 2.
CliHandler show_snmp_communities;

// Word NAME of at most 32 characters; longer ones and a failed write are reported and refused.
CliHandler edit_public_community;
CliHandler edit_private_community;

inline constexpr auto snmp_community_snmp_rows = command_rows({
    {"addcomm", "Add SNMP community", add_snmp_community},
    {"delcomm", "Delete SNMP community", delete_snmp_community},
    {"showcomm", "Display SNMP communities", show_snmp_communities},
    {"editpubliccomm", "Edit SNMP public community", edit_public_community},
    {"editprivatecomm", "Edit SNMP private community", edit_private_community},
});
