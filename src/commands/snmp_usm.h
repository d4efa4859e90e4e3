// SNMPv3: users, their groups, and the views, which are sets of objects that groups may access.
#pragma once

#include "config/value_buffer.h"
#include "shell/command.h"

// A wrong number of words is refused with the usage. A change is saved at once, and the agent
// marked for a restart.

// Words NAME GROUP AUTH AUTHKEY PRIV PRIVKEY: names of at most 31 characters, AUTH 1..3, PRIV 1..2,
// keys of 8..20 and 8..16 characters where their protocol is on. Refused when the name is taken,
// the table is full or the group asks for more; silently when the group does not exist.
CliHandler add_snmp_user;

// Words NAME LEVEL READVIEW WRITEVIEW NOTIFYVIEW: names of at most 32 characters, LEVEL 1..3. A
// view that does not exist, a name that does and a full table are reported and return CLI_DONE.
CliHandler add_snmp_group;

// Words NAME OID TYPE: at most 32 and 128 characters, TYPE 1..3. Adds a row to a view, which may
// exist. Refused when the table is full; type 3 silently, after the row is written without its
// type.
CliHandler add_snmp_view;

// Word NAME, which must exist.
CliHandler delete_snmp_user;
CliHandler delete_snmp_group;

// Word NAME. Deletes all rows of a view, if there are any.
CliHandler delete_snmp_view;

// List a table; refused when it is empty. The users' list also shows the engine ID; it is refused
// when the agent runs but its file is missing.
CliHandler show_snmp_users;
CliHandler show_snmp_groups;
CliHandler show_snmp_views;

inline constexpr std::size_t ENGINE_ID_LIMIT = 2048;

// Reads the agent's own file into `text`, of ENGINE_ID_LIMIT bytes, and returns what it holds from
// "EngineID" on. "" when that is not where the agent writes it; null when the file cannot be
// opened.
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
