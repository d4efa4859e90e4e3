#include "commands/shared/snmp_table.h"

#include "config/apply.h"
#include "config/host_command.h"
#include "config/xmldb_client.h"
#include "shell/output.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr const char *USER_COLUMNS[] = {"secuname", "mapgroup",     "authprotocol",
                                        "authkey",  "privprotocol", "privkey"};
constexpr const char *GROUP_COLUMNS[] = {"groupname", "seculevel", "readview", "writeview",
                                         "notifyview"};
constexpr const char *VIEW_COLUMNS[] = {"viewname", "oid", "viewtype"};
constexpr const char *HOST_COLUMNS[] = {"hostip", "secumodel", "commorun"};
constexpr const char *COMMUNITY_COLUMNS[] = {"community", "cmviewname", "cmtype"};

constexpr NumberedList cells_of(const char *column) {
    return {"/sys/snmpd/%s:%d", column};
}

// The connection of the last deletion, -1 for none. Held as a number, since an owner's destructor
// would have to be registered at the start of the program.
int kept_connection = -1;

void keep(UniqueFd connection) {
    const UniqueFd earlier(kept_connection);
    kept_connection = connection.release();
}

UniqueFd connect_to_database() {
    // By its name: that is what the client's own message shows.
    UniqueFd connection = xmldb_open(xmldb_default_socket);
    if (!connection)
        cli_printf("Error connecting database...\n");
    return connection;
}

int finish_deletion(const SnmpTable &table) {
    char message[64]; // far above the longest
    std::snprintf(message, sizeof message, "\n%s has been deleted successfully", table.entry);
    return finish_snmp_change(message);
}

} // namespace

constinit const SnmpTable SNMP_USERS = {
    .capacity = 10,
    .columns = USER_COLUMNS,
    .entry = "User",
    .existing = "username",
    .full = "The user table is full.",
    .wanted = "specified username",
    .missing = "does not exist!",
};

constinit const SnmpTable SNMP_GROUPS = {
    .capacity = 30,
    .columns = GROUP_COLUMNS,
    .entry = "Group",
    .existing = "group name",
    .full = "\nThe group table is full.",
    .wanted = "specified groupname",
    .missing = "does not exist!",
};

// Several rows may bear one name; together they are the view.
constinit const SnmpTable SNMP_VIEWS = {
    .capacity = 30,
    .columns = VIEW_COLUMNS,
    .entry = "View",
    .existing = "view name",
    .full = "\nThe view table is full.",
};

constinit const SnmpTable SNMP_HOSTS = {
    .capacity = 10,
    .columns = HOST_COLUMNS,
    .entry = "Host",
    .existing = "HostIP",
    .full = "\nThe Host table is full.",
    .wanted = "host",
    .missing = "is not found in SNMP Host Table !",
};

constinit const SnmpTable SNMP_COMMUNITIES = {
    .capacity = 10,
    .columns = COMMUNITY_COLUMNS,
    .entry = "Community",
    .existing = "community name",
    .full = "\nThe community table is full.",
    .wanted = "community",
    .missing = "is not found in SNMP Community Table !",
};

bool exceeds(const char *text, int limit) {
    return std::strlen(text) > static_cast<std::size_t>(limit);
}

int read_snmp_cell(ReadTarget value, const char *column, int row) {
    return cells_of(column).read(value, row);
}

ListPlace find_snmp_row(const SnmpTable &table, ReadTarget value, const char *name, int first) {
    return find_in_list(cells_of(table.columns[0]), value, name, table.capacity, first);
}

void report_existing_snmp_row(const SnmpTable &table, const char *stored, const char *name) {
    cli_printf("%s\nThe %s '%s' existed.\n", stored, table.existing, name);
}

ListPlace place_new_snmp_row(const SnmpTable &table, ReadTarget value, const char *name) {
    const ListPlace place = find_snmp_row(table, value, name);
    if (place.result() == SearchResult::Match)
        report_existing_snmp_row(table, value.data, name);
    else if (place.result() == SearchResult::Full)
        cli_printf("%s\n", table.full);
    return place;
}

void write_snmp_row(int row, std::initializer_list<SnmpCell> cells) {
    for (const SnmpCell &cell : cells)
        cells_of(cell.column).write(row, cell.value);
}

int finish_snmp_change(const char *message) {
    save_configuration();
    mark_for_apply(APPLY_SNMP);
    cli_printf("%s\n", message);
    return CLI_DONE;
}

int delete_snmp_row(const SnmpTable &table, ReadTarget value, const char *name) {
    const ListPlace place = find_snmp_row(table, value, name);
    if (place.result() == SearchResult::Unreadable)
        return CLI_REFUSED;
    const std::optional<int> row = place.match();
    if (!row)
        return refuse("\n The %s '%s' %s\n", table.wanted, name, table.missing);
    UniqueFd connection = connect_to_database();
    if (!connection)
        return CLI_REFUSED;
    for (const char *column : table.columns)
        xmldb_del(connection, 0, cells_of(column).path(*row).data());
    keep(std::move(connection));
    return finish_deletion(table);
}

int delete_all_snmp_rows(const SnmpTable &table, ReadTarget value, const char *name) {
    // Only shows that the database answers; the deletions open their own. Deliberate.
    UniqueFd connection = connect_to_database();
    if (!connection)
        return CLI_REFUSED;
    keep(std::move(connection));
    // A row moves into the place of a deleted one, hence each time from the start; but no more
    // often than there are rows, for a database that does not delete.
    for (int times = 0; times < table.capacity; ++times) {
        const ListPlace place = find_snmp_row(table, value, name);
        if (place.result() == SearchResult::Unreadable)
            return CLI_REFUSED;
        const std::optional<int> row = place.match();
        if (!row)
            break;
        for (const char *column : table.columns)
            cells_of(column).remove(*row);
    }
    return finish_deletion(table);
}

bool SnmpRow::read(std::span<const SnmpColumn> columns, int row) {
    for (std::size_t column = 0; column < columns.size(); ++column) {
        ReadTarget value(values_[column]);
        value.limit = columns[column].limit;
        if (read_snmp_cell(value, columns[column].name, row) != 0)
            return false;
        // Behind an empty name there is no row.
        if (value.data[0] == '\0' && column == 0)
            return true;
    }
    return true;
}

int for_each_snmp_row(const SnmpTable &table, std::span<const SnmpColumn> columns,
                      SnmpRowVisit *visit) {
    for (int row = 1; row <= table.capacity; ++row) {
        SnmpRow values;
        if (!values.read(columns, row))
            return -1;
        if (values[0][0] == '\0')
            return row - 1;
        if (!visit(values))
            return -1;
    }
    return table.capacity;
}

bool has_snmp_rows(const SnmpTable &table, const char *message) {
    UsualValue name;
    if (read_snmp_cell(name, table.columns[0], 1) != 0)
        return false;
    if (name.empty())
        cli_printf("%s\n", message);
    return !name.empty();
}

int list_snmp_rows(const SnmpTable &table, std::span<const SnmpColumn> columns, SnmpRowVisit *print,
                   int others) {
    const int rows = for_each_snmp_row(table, columns, print);
    if (rows < 0)
        return CLI_REFUSED;
    cli_printf("\n\n\rTotal Entries: %d\n", rows + others);
    return CLI_DONE;
}
