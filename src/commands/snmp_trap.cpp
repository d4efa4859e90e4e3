#include "commands/snmp_trap.h"

#include "shell/args.h"
#include "shell/output.h"

#include <cstring>

namespace {

// The trap server is the first row of the host table.
constexpr char TRAP_SERVER[] = "/sys/snmpd/hostip:1";
constexpr char TRAP_VERSION[] = "/sys/snmpd/secumodel:1";

bool begins_with(const char *word, const char *beginning) {
    return std::strncmp(word, beginning, std::strlen(beginning)) == 0;
}

} // namespace

const char *snmp_agent_state_name(int number) {
    return number != 0 ? "Active" : "Suspended";
}

int set_snmp_trap(CliContext &cli, const char *, CliCommand *) {
    static constexpr char USAGE[] = "\nsnmp settrap        < TrapStatus<enable/disable> >\n";
    if (arg_count(cli) != 1)
        return refuse(USAGE);
    const char *status = arg_peek(cli, 0);
    // Only the beginning of the word counts.
    if (begins_with(status, "enable"))
        cfg_set("1", SNMP_TRAP_STATUS);
    else if (begins_with(status, "disable"))
        cfg_set("0", SNMP_TRAP_STATUS);
    else
        return refuse(USAGE);
    cli_printf("\nSNMP Trap Status: %s\n", status);
    return mark_for_apply(APPLY_SNMP);
}

int set_snmp_trap_server(CliContext &cli, const char *, CliCommand *) {
    const int count = arg_count(cli);
    if (count == 0) {
        // Deletes although it is then refused. Deliberate.
        cfg_del(TRAP_SERVER);
        cli_printf("\ndel SNMP Trap Server Ip\n");
    }
    if (count != 1)
        return refuse("\nsnmp settrapServerIp  <TrapServerIp>\n");
    const char *server = arg_peek(cli, 0);
    cfg_set(server, TRAP_SERVER);
    cli_printf("\nSNMP Trap Server Ip: %s\n", server);
    return mark_for_apply(APPLY_SNMP);
}

int set_snmp_trap_version(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("\nsnmp settrapVersion        < Type<1/2/3>"
                      "(1:SNMPv1 / 2:SNMPv2 / 3:SNMPv3) >\n");
    const int version = decimal_value(arg_peek(cli, 0));
    // Version 3 is offered, but changes nothing. Deliberate.
    if (version == SNMP_V1 || version == SNMP_V2C) {
        cfg_set_number(version, TRAP_VERSION);
        cli_printf("SNMP Trap Version: SNMPv%d\n", version);
    }
    cli_printf("%s", PLEASE_APPLY.text);
    return mark_for_apply(APPLY_SNMP);
}

int show_snmp_trap(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 0)
        return CLI_DONE;
    const int status = cfg_number(SNMP_TRAP_STATUS);
    if (status == 0 || status == 1)
        cli_printf("SNMP Trap Status: %s.\n", enable_word(status == 1));
    return CLI_DONE;
}

int show_snmp_trap_server(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 0)
        return CLI_DONE;
    UsualValue server;
    cfg_get(server, TRAP_SERVER);
    if (server.empty())
        cli_printf("SNMP Trap Server Ipaddress has not been set.\n");
    else
        cli_printf("SNMP Trap Server Ipaddress: %s\n", server.text());
    return CLI_DONE;
}

int show_snmp_trap_version(CliContext &, const char *, CliCommand *) {
    const int version = cfg_number(TRAP_VERSION);
    if (version >= SNMP_V1 && version <= SNMP_V3)
        cli_printf("SNMP Trap Version: SNMPv%d\n", version);
    return CLI_DONE;
}

int set_snmp_auth_trap(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("\nauthtrap            < Status<string>(enable/disable) >\n");
    const char *status = arg_peek(cli, 0);
    const bool on = std::strcmp(status, "enable") == 0;
    if (!on && std::strcmp(status, "disable") != 0)
        return refuse("\nInvalid Status!!\n");
    if (cfg_set(on ? "1" : "0", SNMP_TRAP_STATUS) != 0)
        return refuse("\nUnable to set %s!\n", status);
    return finish_snmp_change(on ? "\nSet to enable successfully!"
                                 : "\nSet to disable successfully!");
}
