#include "commands/lan_ip.h"

#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/output.h"

namespace {

constexpr char MODE[] = "/wan/rg/inf:1/mode";
constexpr int STATIC_MODE = 1; // every other mode counts as dynamic

// Reads only the mode's first character, unlike other displays. Deliberate.
bool mode_begins_static() {
    ShortValue<1> mode;
    cfg_get(mode, MODE);
    return mode.number() == STATIC_MODE;
}

int run_by_mode(const CliContext &cli, const char *when_static, const char *when_dynamic) {
    if (mode_begins_static())
        return run_fixed_command(cli, when_static);
    cfg_number("/sys/hostname"); // read, but not used
    return run_fixed_command(cli, when_dynamic);
}

} // namespace

int get_ip_address(CliContext &cli, const char *, CliCommand *) {
    return run_by_mode(cli, "rgdb -g /wan/rg/inf:1/static/ip", "rgdb -i -g /runtime/wan/inf:1/ip");
}

int get_ip_mask(CliContext &cli, const char *, CliCommand *) {
    return run_by_mode(cli, "rgdb -g /wan/rg/inf:1/static/netmask",
                       "rgdb -i -g /runtime/wan/inf:1/netmask");
}

int get_gateway(CliContext &cli, const char *, CliCommand *) {
    const bool is_static = cfg_number(MODE) == STATIC_MODE;
    return show_node_text(cli,
                          is_static ? "/wan/rg/inf:1/static/gateway" : "/runtime/wan/inf:1/gateway",
                          "%s\n", 15, MEMORY_ERROR);
}

int get_name_server(CliContext &cli, const char *, CliCommand *) {
    if (cfg_number(MODE) == STATIC_MODE)
        return show_node_text(cli, "/dnsrelay/server/primarydns", "%s\n", 15, MEMORY_ERROR);
    run_command("rgdb -i -g /runtime/wan/inf:1/primarydns");
    cli_printf("\n");
    return CLI_DONE;
}

int get_ip_mode(CliContext &, const char *, CliCommand *) {
    cli_printf("ipmode:%s\n", mode_begins_static() ? "Static" : "Dynamic");
    return CLI_DONE;
}
