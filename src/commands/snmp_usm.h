// SNMPv3: users, the groups that they belong to, and the views of the objects that groups may
// reach.
#pragma once

#include "config/value_buffer.h"
#include "shell/command.h"

int add_snmp_user(CliContext &cli, const char *word, CliCommand *subtable);

// The views that a group names must exist; its name must not.
int add_snmp_group(CliContext &cli, const char *word, CliCommand *subtable);

// Adds a row to a view, which may exist.
int add_snmp_view(CliContext &cli, const char *word, CliCommand *subtable);

int delete_snmp_user(CliContext &cli, const char *word, CliCommand *subtable);
int delete_snmp_group(CliContext &cli, const char *word, CliCommand *subtable);

// Deletes all rows of a view, also when there is none.
int delete_snmp_view(CliContext &cli, const char *word, CliCommand *subtable);

int show_snmp_users(CliContext &cli, const char *word, CliCommand *subtable);
int show_snmp_groups(CliContext &cli, const char *word, CliCommand *subtable);
int show_snmp_views(CliContext &cli, const char *word, CliCommand *subtable);

inline constexpr std::size_t ENGINE_ID_LIMIT = 2048;

// Reads the engine ID from the agent's own file: what stands in `text`, of ENGINE_ID_LIMIT bytes,
// from "EngineID" on. An empty text when the file does not hold it where the agent writes it; null
// when the file cannot be opened.
const char *read_engine_id(const char *file, ValueBuffer &text);

inline constexpr auto snmp_usm_snmp_rows = command_rows({
    {"adduser", "Add SNMP user", add_snmp_user},
    {"addgroup", "Add SNMP group", add_snmp_group},
    {"addview", "Add SNMP view", add_snmp_view},
    {"deluser", "Delete SNMP user", delete_snmp_user},
    {"delgroup", "Delete SNMP group", delete_snmp_group},
    {"delview", "Delete SNMP view", delete_snmp_view},
    {"showuser", "Display SNMP users", show_snmp_users},
    {"showgroup", "Display SNMP groups", show_snmp_groups},
    {"showview", "Display SNMP views", show_snmp_views},
});
