#include "commands/lan_ip.h"

#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/output.h"

namespace {

constexpr char MODE[] = "/wan/rg/inf:1/mode";
constexpr int STATIC_MODE = 1; // every other mode counts as dynamic

// Only the mode's first character counts here, in other displays the whole text. Meant so.
bool mode_begins_static() {
    ShortValue<1> mode;
    cfg_get(mode, MODE);
    return mode.number() == STATIC_MODE;
}

void read_host_name() {
    cfg_number("/sys/hostname"); // nothing comes of it
}

} // namespace

int get_ip_address(CliContext &, const char *, CliCommand *) {
    if (mode_begins_static()) {
        run_command("rgdb -g /wan/rg/inf:1/static/ip");
        return CLI_DONE;
    }
    read_host_name();
    run_command("rgdb -i -g /runtime/wan/inf:1/ip");
    return CLI_DONE;
}

int get_ip_mask(CliContext &, const char *, CliCommand *) {
    if (mode_begins_static()) {
        run_command("rgdb -g /wan/rg/inf:1/static/netmask");
        return CLI_DONE;
    }
    read_host_name();
    run_command("rgdb -i -g /runtime/wan/inf:1/netmask");
    return CLI_DONE;
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
