#include "commands/wds.h"

#include "commands/radio.h"
#include "commands/shared/numbered_list.h"
#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr int PEERS = 4;
constexpr int LINKS = 8;

constexpr char PEER[] = "/wlan/inf:%d/wds/list/index:%d/mac";

bool is_new_peer(const CliContext &cli, ValueBuffer &value, const char *mac) {
    for (int index = 1; index <= PEERS; ++index) {
        // The band, 0 or 1, is taken for the interface's number: on 5 GHz the list of 2.4 GHz is
        // searched, on 2.4 GHz none. Deliberate.
        if (cfg_get(value, PEER, static_cast<int>(cli.current_band), index) != 0)
            return false;
        if (std::strcmp(value.text(), mac) == 0)
            return complain("the mac address is exist!\n");
    }
    return true;
}

// A field of an entry and its label.
struct Field {
    const char *label;
    const char *leaf;
};

void show_field(ValueBuffer &value, const char *entry, const Field &field) {
    cfg_get(value, "%s/%s", entry, field.leaf);
    cli_printf(" [%s]:%s", field.label, printable_text(value));
}

// Shows a link's clients up to the first with a connection time of 0.
void show_link(const CliContext &cli, ValueBuffer &value, int link) {
    for (int client = 1; client <= LIST_BOUND; ++client) {
        char entry[64];
        std::snprintf(entry, sizeof entry, "/runtime/stats/wlan/inf:%d/wds:%d/client:%d",
                      interface_number(cli), link, client);
        cfg_get(value, "%s/time", entry);
        if (value.number() == 0)
            return;
        cli_printf("%d:wds entry-[TIME]:%s", client, printable_text(value));
        show_field(value, entry, {"MAC", "mac"});
        cli_printf(" [WDS-number]:W-%d", link);
        show_field(value, entry, {"RSSI", "rssi"});
        show_field(value, entry, {"MODE", "mode"});
        cli_printf("\n");
    }
}

} // namespace

int add_wds_peer(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 2)
        return refuse("error macaddradd, MAC error or WDS index(%d-%d) error!\n", 1, PEERS);
    ValueBuffer value;
    if (!value)
        return refuse(NO_ENOUGH_MEMORY);
    MacText mac{};
    if (arg_mac(cli, mac) == 0)
        return refuse("error macaddradd!\n");
    arg_next(cli);
    const int index = decimal_value(arg_next(cli));
    if (index < 1 || index > PEERS) {
        cli_printf("Error! WDS index is between %d and %d \n", 1, PEERS);
        return mark_for_apply(APPLY_WLAN); // with nothing written. Deliberate.
    }
    if (!is_new_peer(cli, value, mac.data()))
        return CLI_REFUSED;
    cfg_set(mac.data(), PEER, interface_number(cli), index);
    return mark_for_apply(APPLY_WLAN);
}

int delete_wds_peer(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("error macaddrdel!\n");
    // Any index is accepted. Deliberate.
    cfg_set("", PEER, interface_number(cli), decimal_value(arg_next(cli)));
    return mark_for_apply(APPLY_WLAN);
}

int scan_wds(CliContext &, const char *, CliCommand *) {
    run_command("sh /etc/templates/wds_scan.sh %s", ProgramText(operating_band == 1 ? "a" : "g"));
    return CLI_DONE;
}

int get_wds_peers(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(NO_ENOUGH_MEMORY);
    for (int index = 1; index <= PEERS; ++index) {
        cfg_get(value, PEER, interface_number(cli), index);
        if (!value.empty())
            cli_printf("WDS mac address%d:--%s\n", index, value.text());
    }
    return CLI_DONE;
}

int get_wds_links(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    for (int link = 1; link <= LINKS; ++link)
        show_link(cli, value, link);
    return CLI_DONE;
}

int get_wds_survey(CliContext &, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    for (int index = 1; index <= LIST_BOUND; ++index) {
        char entry[64];
        std::snprintf(entry, sizeof entry, "/runtime/wlan/inf:1/wdslistinfo/wdsscan:%d", index);
        cfg_get(value, "%s/chan", entry);
        if (value.number() == 0)
            break;
        cli_printf("%d:wds scan entry-[CHANNEL]:%s", index, printable_text(value));
        show_field(value, entry, {"MAC", "mac"});
        show_field(value, entry, {"SSID", "ssid"});
        show_field(value, entry, {"RSSI", "rssi"});
        show_field(value, entry, {"MODE", "auth"}); // the authentication. Deliberate.
        cli_printf("\n");
        show_field(value, entry, {"WDSMODE", "wdsmode"});
        cli_printf("\n");
    }
    return CLI_DONE;
}
