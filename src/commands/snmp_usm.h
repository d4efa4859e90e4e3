// SNMPv3: users, the groups that they belong to, and the views of the objects that groups may
// reach.
#pragma once

#include "config/value_buffer.h"
#include "shell/command.h"

// Each but the listings refuses other counts of words with its usage; each ends silently when a
// node cannot be read. A change is saved at once, and the agent marked for a restart.

// Words NAME GROUP AUTH AUTHKEY PRIV PRIVKEY: names of at most 31 characters, AUTH 1..3, PRIV 1..2,
// keys of 8..20 and 8..16 characters where their protocol is on. What is out of these limits, a
// name that is taken, a full table, and a group that asks for more are reported and refused; a
// group that does not exist is refused silently.
CliHandler add_snmp_user;

// Words NAME LEVEL READVIEW WRITEVIEW NOTIFYVIEW: names of at most 32 characters, LEVEL 1..3.
// Refuses what is out of these limits. The views must exist and the name must not; otherwise this
// is reported, and the result is CLI_DONE.
CliHandler add_snmp_group;

// Words NAME OID TYPE: at most 32 and 128 characters, TYPE 1..3. Adds a row to a view, which may
// exist. What is out of these limits and a full table are reported and refused; type 3 is refused
// silently, after the row is written without its type.
CliHandler add_snmp_view;

// Word NAME. What does not exist is reported and refused.
CliHandler delete_snmp_user;
CliHandler delete_snmp_group;

// Word NAME. Deletes all rows of a view, also when there is none.
CliHandler delete_snmp_view;

// List a table; an empty one is reported and refused. The users' list also shows the engine ID, and
// is refused when the agent runs without its file or after "no enough memory!".
CliHandler show_snmp_users;
CliHandler show_snmp_groups;
CliHandler show_snmp_views;

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
