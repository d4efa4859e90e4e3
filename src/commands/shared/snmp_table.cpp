#include "commands/shared/snmp_table.h"

#include "config/apply.h"
#include "config/host_command.h"
#include "config/xmldb_client.h"
#include "shell/output.h"

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

// -1 for none. Not a UniqueFd, whose destructor would have to be registered at start-up.
int last_deletion_connection = -1;

} // namespace

constinit const SnmpTable SNMP_USERS = {
    .capacity = 10,
    .columns = USER_COLUMNS,
    .deleted_line = "\nUser has been deleted successfully",
    .taken_noun = "username",
    .full_line = "The user table is full.",
    .missing_noun = "specified username",
    .missing_phrase = "does not exist!",
};

constinit const SnmpTable SNMP_GROUPS = {
    .capacity = 30,
    .columns = GROUP_COLUMNS,
    .deleted_line = "\nGroup has been deleted successfully",
    .taken_noun = "group name",
    .full_line = "\nThe group table is full.",
    .missing_noun = "specified groupname",
    .missing_phrase = "does not exist!",
};

// Several rows can share a name; together they are the view.
constinit const SnmpTable SNMP_VIEWS = {
    .capacity = 30,
    .columns = VIEW_COLUMNS,
    .deleted_line = "\nView has been deleted successfully",
    .taken_noun = "view name",
    .full_line = "\nThe view table is full.",
};

constinit const SnmpTable SNMP_HOSTS = {
    .capacity = 10,
    .columns = HOST_COLUMNS,
    .deleted_line = "\nHost has been deleted successfully",
    .taken_noun = "HostIP",
    .full_line = "\nThe Host table is full.",
    .missing_noun = "host",
    .missing_phrase = "is not found in SNMP Host Table !",
};

constinit const SnmpTable SNMP_COMMUNITIES = {
    .capacity = 10,
    .columns = COMMUNITY_COLUMNS,
    .deleted_line = "\nCommunity has been deleted successfully",
    .taken_noun = "community name",
    .full_line = "\nThe community table is full.",
    .missing_noun = "community",
    .missing_phrase = "is not found in SNMP Community Table !",
};

bool exceeds(const char *text, int limit) {
    return std::strlen(text) > static_cast<std::size_t>(limit);
}

int read_snmp_cell(ReadTarget value, const char *column, int row) {
    return cells_of(column).read(value, row);
}

ListPlace find_snmp_row(const SnmpTable &table, const char *name, std::size_t limit) {
    UsualValue buffer;
    ReadTarget value(buffer);
    value.limit = limit;
    return find_in_list(cells_of(table.columns[0]), value, name, table.capacity);
}

void report_taken_snmp_name(const SnmpTable &table, const char *name) {
    cli_printf("%s\nThe %s '%s' existed.\n", name, table.taken_noun, name);
}

ListPlace place_new_snmp_row(const SnmpTable &table, const char *name, std::size_t limit) {
    const ListPlace place = find_snmp_row(table, name, limit);
    if (place.result == SearchResult::Match)
        report_taken_snmp_name(table, name);
    else if (place.result == SearchResult::Full)
        cli_printf("%s\n", table.full_line);
    return place;
}

void write_snmp_row(int row, std::initializer_list<SnmpCell> cells) {
    for (const SnmpCell &cell : cells)
        cells_of(cell.column).write(row, cell.value);
}

int finish_snmp_change(const char *message) {
    save_configuration();
    cli_printf("%s\n", message);
    return mark_for_apply(APPLY_SNMP);
}

UniqueFd open_deletion_connection() {
    // Named, since the client's message shows the argument.
    UniqueFd connection = xmldb_open(xmldb_default_socket);
    if (!connection)
        cli_printf("Error connecting database...\n");
    return connection;
}

void keep_deletion_connection(UniqueFd connection) {
    const UniqueFd earlier(last_deletion_connection);
    last_deletion_connection = connection.release();
}

void remove_snmp_row(const SnmpTable &table, int row) {
    for (const char *column : table.columns)
        cells_of(column).remove(row);
}

int delete_snmp_row(const SnmpTable &table, const char *name, std::size_t limit) {
    const ListPlace place = find_snmp_row(table, name, limit);
    if (place.result == SearchResult::Unreadable)
        return CLI_REFUSED;
    const std::optional<int> row = place.match;
    if (!row)
        return refuse("\n The %s '%s' %s\n", table.missing_noun, name, table.missing_phrase);
    UniqueFd connection = open_deletion_connection();
    if (!connection)
        return CLI_REFUSED;
    for (const char *column : table.columns)
        xmldb_del(connection, 0, cells_of(column).path(*row).data());
    keep_deletion_connection(std::move(connection));
    return finish_snmp_change(table.deleted_line);
}

bool SnmpRow::read(std::span<const SnmpColumn> columns, int row) {
    for (std::size_t column = 0; column < columns.size(); ++column) {
        ReadTarget value(values_[column]);
        value.limit = columns[column].limit;
        if (read_snmp_cell(value, columns[column].name, row) != 0)
            return false;
        // An empty name ends the table.
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
