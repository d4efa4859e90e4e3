#include "commands/snmp_host.h"

#include "commands/shared/address.h"
#include "commands/shared/snmp_table.h"
#include "config/host_command.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstring>

namespace {

enum AuthType : std::int32_t { AUTH_COMMUNITY, AUTH_NOAUTH_NOPRIV, AUTH_NOPRIV, AUTH_PRIV };

constexpr SnmpColumn HOST_ADDRESS = {"hostip"};
constexpr SnmpColumn HOST_COMMUNITY = {"commorun"};

// The words of `snmp addhost`.
struct NewHost {
    const char *address;
    const char *version_word;
    const char *auth_word;
    const char *community; // or, for version 3, the user
    std::int32_t version = 0;
    std::int32_t auth = 0;
};

bool words_fit(NewHost &host) {
    if (!is_address(host.address))
        return complain("\nPlease input correct IP address!\n");
    if (int_parse_blank(host.version_word, host.version) == 0)
        return complain("\nSnmpType is a number!\n");
    if (host.version < SNMP_V1 || host.version > SNMP_V3)
        return complain("\nSnmpType is a number between 1-3!\n");
    if (int_parse_blank(host.auth_word, host.auth) == 0)
        return complain("\nAuthType is a number!\n");
    if (host.auth > AUTH_PRIV) // no lower bound
        return complain("\nAuthType is a number between 0-3!!\n");
    if (exceeds(host.community, SNMP_NAME_LIMIT))
        return complain("\nAuthString exceeds %d characters!!\n", SNMP_NAME_LIMIT);
    if (host.version != SNMP_V3 && host.auth >= AUTH_NOAUTH_NOPRIV)
        return complain("\nSNMP v1 and v2c don't support Auth and Priv!!\n");
    if (host.version == SNMP_V3 && host.auth == AUTH_COMMUNITY)
        return complain("\nSNMP v3 support AuthType 1-3\t!!\n");
    return true;
}

bool community_exists(const NewHost &host) {
    const SearchResult result = find_snmp_row(SNMP_COMMUNITIES, host.community).result;
    if (result == SearchResult::Unreadable)
        return false;
    if (result == SearchResult::Match)
        return true;
    UsualValue value;
    for (const char *node : {SNMP_PRIVATE_COMMUNITY, SNMP_PUBLIC_COMMUNITY}) {
        if (cfg_get_plain(value, node) != 0)
            return false;
        if (std::strcmp(value.text(), host.community) == 0)
            return true;
    }
    return complain("\n The community doesn't exist !\n");
}

// True when a user's protocol is off: below 2. The node holds a word, whose decimal value is 0, so
// it always seems off. Deliberate.
bool seems_off(const char *column, int row) {
    UsualValue protocol;
    read_snmp_cell(protocol, column, row);
    return protocol.number() < 2;
}

// Accepts only users that do not exist, and refuses all others for various reasons. Deliberate.
bool admits_user(const NewHost &host) {
    const ListPlace user = find_snmp_row(SNMP_USERS, host.community);
    if (user.result == SearchResult::Unreadable)
        return false;
    const std::optional<int> row = user.match;
    if (!row)
        return true;
    switch (host.auth) {
    case AUTH_NOPRIV:
        if (seems_off("authprotocol", *row))
            return complain("\n The specified user does seting AuthProtocol!\n");
        break;
    case AUTH_PRIV:
        if (seems_off("authprotocol", *row))
            return complain("\n The specified user does not set authentication protocol!\n");
        if (seems_off("privprotocol", *row))
            return complain("\n The specified user does not set privacy protocol!\n");
        break;
    default:
        break;
    }
    return complain("\n The user doesn't exist !\n");
}

bool print_host(const SnmpRow &row) {
    cli_printf("\n %-15s v%-18s %s", row[0], row[1], row[2]);
    return true;
}

bool send_trap(const SnmpRow &row) {
    const ShellWord host(row[0]);
    const ShellWord community(row[2]);
    switch (decimal_value(row[1])) {
    case SNMP_V1:
        run_command(R"(snmptrap -v 1 -c %s %s "" "" 1 0  "" )", community, host);
        break;
    case SNMP_V2C:
        run_command(R"(snmptrap -v 2c -c %s %s "" .1.3.6.1.6.3.1.1.5.2)", community, host);
        break;
    case SNMP_V3:
        cli_printf("\nIt doesn't support v3 now!!\n");
        break;
    default:
        break;
    }
    return true;
}

} // namespace

int add_snmp_host(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 4)
        return refuse("\nsnmp addhost        < TrapHostIP<string> "
                      "SnmpType<1/2/3>(1:v1/2:v2c/3:v3)\n"
                      "                      AuthType<0/1/2/3>\n"
                      "                      (0:v1,v2c/1:v3,noauth_nopriv/2:v3,auth_nopriv\n"
                      "                      /3:v3,auth_priv)\n"
                      "                      AuthString<string>"
                      "(CommunityString:v1,v2c/UserName:v3) >\n");
    NewHost host = {arg_peek(cli, 0), arg_peek(cli, 1), arg_peek(cli, 2), arg_peek(cli, 3)};
    if (!words_fit(host))
        return CLI_REFUSED;
    const std::optional<int> row = place_new_snmp_row(SNMP_HOSTS, host.address).vacancy;
    if (!row || !(host.version == SNMP_V3 ? admits_user(host) : community_exists(host)))
        return CLI_REFUSED;
    write_snmp_row(*row, {{"hostip", host.address}, {"secumodel", host.version_word}});
    cfg_set(host.community, SNMP_PUBLIC_COMMUNITY); // also a user's name. Deliberate.
    write_snmp_row(*row, {{"commorun", host.community}});
    return finish_snmp_change("\nAdd host successfully");
}

int delete_snmp_host(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("\nsnmp delhost        < TrapHostIP<string> >\n");
    const char *address = arg_peek(cli, 0);
    if (!is_address(address))
        return refuse("\nPlease input correct IP address!\n");
    static constexpr std::size_t ADDRESS_LIMIT = 20;
    return delete_snmp_row(SNMP_HOSTS, address, ADDRESS_LIMIT);
}

int show_snmp_hosts(CliContext &, const char *, CliCommand *) {
    static constexpr SnmpColumn COLUMNS[] = {HOST_ADDRESS, {"secumodel", 3}, HOST_COMMUNITY};
    if (!has_snmp_rows(SNMP_HOSTS, "\n SNMP Host Table is empty !"))
        return CLI_REFUSED;
    cli_printf("\n SNMP Host Table"
               "\n Host IP Address SNMP Version       Community Name / SNMPv3 User Name"
               "\n --------------- ------------------ ---------------------------------");
    if (list_snmp_rows(SNMP_HOSTS, COLUMNS, print_host) != CLI_DONE)
        return CLI_REFUSED;
    cli_printf("We only support one host for now,and the last host is effective.\n");
    return CLI_DONE;
}

int send_snmp_trap(CliContext &, const char *, CliCommand *) {
    static constexpr SnmpColumn COLUMNS[] = {HOST_ADDRESS, {"secumodel"}, HOST_COMMUNITY};
    if (!has_snmp_rows(SNMP_HOSTS, "\nThe Host table is empty!! "))
        return CLI_REFUSED;
    if (cfg_number(SNMP_STATUS) == 0) {
        cli_printf("\nSNMP Agent is suspended. Trap can't be sent out.\n");
        return CLI_DONE;
    }
    if (cfg_number(SNMP_TRAP_STATUS) == 0) {
        cli_printf("\nSNMP Trap Status is suspended. Trap can't be sent out.\n");
        return CLI_DONE;
    }
    return for_each_snmp_row(SNMP_HOSTS, COLUMNS, send_trap) < 0 ? CLI_REFUSED : CLI_DONE;
}
