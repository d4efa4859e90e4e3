// The nodes and tables of the SNMP agent, and what the commands on users, groups, views, hosts and
// communities share.
#pragma once

#include "commands/shared/numbered_list.h"
#include "config/unique_fd.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>

// Nodes outside the tables.
inline constexpr char SNMP_STATUS[] = "/sys/snmpd/status";
inline constexpr char SNMP_TRAP_STATUS[] = "/sys/snmptrap/status";
inline constexpr char SNMP_PUBLIC_COMMUNITY[] = "/sys/snmpd/rocomm";
inline constexpr char SNMP_PRIVATE_COMMUNITY[] = "/sys/snmpd/rwcomm";

// The version of a host's traps, as its row holds it.
enum SnmpVersion : std::int32_t { SNMP_V1 = 1, SNMP_V2C, SNMP_V3 };

// A table below "/sys/snmpd": rows numbered from 1 with a node for each column. The database leaves
// no holes, so the first row with an empty name is the end of the table and the place of the next
// row.
struct SnmpTable {
    int capacity;
    std::span<const char *const> columns; // the name's first
    const char *deleted_line;             // reports a deletion
    const char *taken_noun;               // "username", as in "The username 'x' existed."
    const char *full_line;                // refuses a row too many
    // "host" and "is not found", as in "The host 'x' is not found"; not used for the views.
    const char *missing_noun = nullptr;
    const char *missing_phrase = nullptr;
};

extern const SnmpTable SNMP_USERS;
extern const SnmpTable SNMP_GROUPS;
extern const SnmpTable SNMP_VIEWS;
extern const SnmpTable SNMP_HOSTS;
extern const SnmpTable SNMP_COMMUNITIES;

// The longest name of a group, view or community, in characters.
inline constexpr int SNMP_NAME_LIMIT = 32;

// True when `text` has more than `limit` characters, 0 or more.
bool exceeds(const char *text, int limit);

// A value as the commands on users, groups and views read it: one character short of the longest
// name, so a row with such a name can be added but never found. Deliberate.
inline constexpr std::size_t CUT_SNMP_TEXT_LIMIT = SNMP_NAME_LIMIT - 1;
using CutSnmpText = ShortValue<CUT_SNMP_TEXT_LIMIT>;

// Reads one node of a row, as cfg_get does.
int read_snmp_cell(ReadTarget value, const char *column, int row);

// Searches the names of the rows, as find_in_list does. At most `limit` bytes of each name are
// read, up to ValueBuffer::USUAL_LIMIT.
ListPlace find_snmp_row(const SnmpTable &table, const char *name,
                        std::size_t limit = ValueBuffer::USUAL_LIMIT);

// Reports that the name is taken.
void report_taken_snmp_name(const SnmpTable &table, const char *name);

// Finds the vacancy for a new row `name`. Reports a name that is taken and a full table.
ListPlace place_new_snmp_row(const SnmpTable &table, const char *name,
                             std::size_t limit = ValueBuffer::USUAL_LIMIT);

struct SnmpCell {
    const char *column;
    const char *value;
};

// Writes the nodes of a row in the given order.
void write_snmp_row(int row, std::initializer_list<SnmpCell> cells);

// Finishes a change: saves the configuration, prints the message as a line and marks the agent for
// a restart. Returns CLI_DONE.
int finish_snmp_change(const char *message);

// Deletes the row `name` on one connection, ignoring the database's answers, and finishes the
// change. Returns as a handler does; refused when there is no such row or no connection.
int delete_snmp_row(const SnmpTable &table, const char *name,
                    std::size_t limit = ValueBuffer::USUAL_LIMIT);

// What the deletions are made of.

// Connects to the database; empty after "Error connecting database...".
UniqueFd open_deletion_connection();

// Leaves the connection open until the next deletion. Deliberate.
void keep_deletion_connection(UniqueFd connection);

// Deletes the nodes of a row, each on its own connection.
void remove_snmp_row(const SnmpTable &table, int row);

// A column of a listing; at most `limit` characters of it are read.
struct SnmpColumn {
    char name[13];
    std::size_t limit = ValueBuffer::USUAL_LIMIT;
};

// The values of one row, in the order of the columns that were asked for.
class SnmpRow {
public:
    static constexpr std::size_t MAX_COLUMNS = 5;

    // Reads the row. False when a node could not be read, which was reported.
    bool read(std::span<const SnmpColumn> columns, int row);

    const char *operator[](std::size_t column) const { return values_[column].text(); }

private:
    std::array<UsualValue, MAX_COLUMNS> values_;
};

// Does something with a row; false ends the walk.
using SnmpRowVisit = bool(const SnmpRow &row);

// Reads the columns, the name's first, of each row and visits it. Returns the number of rows; or -1
// when one could not be read or a visit ended the walk.
int for_each_snmp_row(const SnmpTable &table, std::span<const SnmpColumn> columns,
                      SnmpRowVisit *visit);

// True when the table has rows. Otherwise prints `message` as a line, unless the first name could
// not be read.
bool has_snmp_rows(const SnmpTable &table, const char *message);

// Prints the rows with `print`, then their number plus `others`. Refused, without the number, where
// for_each_snmp_row returns -1.
int list_snmp_rows(const SnmpTable &table, std::span<const SnmpColumn> columns, SnmpRowVisit *print,
                   int others = 0);
