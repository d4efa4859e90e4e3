// The communities of SNMP v1 and v2c: the public and the private one, and those of a view each.
#pragma once

#include "shell/command.h"

// The view must exist. Type 0 is accepted too.
int add_snmp_community(CliContext &cli, const char *word, CliCommand *subtable);

// Never the public or the private one.
int delete_snmp_community(CliContext &cli, const char *word, CliCommand *subtable);

int show_snmp_communities(CliContext &cli, const char *word, CliCommand *subtable);
int edit_public_community(CliContext &cli, const char *word, CliCommand *subtable);
int edit_private_community(CliContext &cli, const char *word, CliCommand *subtable);

inline constexpr auto snmp_community_snmp_rows = command_rows({
    {"addcomm", "Add SNMP community", add_snmp_community},
    {"delcomm", "Delete SNMP community", delete_snmp_community},
    {"showcomm", "Display SNMP communities", show_snmp_communities},
    {"editpubliccomm", "Edit SNMP public community", edit_public_community},
    {"editprivatecomm", "Edit SNMP private community", edit_private_community},
});
