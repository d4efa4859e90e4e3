#include "commands/clients.h"

#include "commands/shared/numbered_list.h"
#include "commands/shared/rows.h"
#include "commands/shared/wireless_numbers.h"
#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/output.h"

#include <cstdio>

namespace {

constexpr int LISTED_SLOTS = 7; // more than the console sets. Deliberate.

// What a display calls a node.
struct LabelledNode {
    char label[11];
    char node[11];
};

// An SSID whose clients are displayed.
struct Ssid {
    char clients[64];        // the tree above them
    char authentication[64]; // the node of its authentication type
    char name[32];
};

Ssid primary_ssid(int interface) {
    Ssid ssid{.clients = "", .authentication = "", .name = "primary SSID"};
    std::snprintf(ssid.clients, sizeof ssid.clients, "/runtime/stats/wlan/inf:%d", interface);
    std::snprintf(ssid.authentication, sizeof ssid.authentication, "/wlan/inf:%d/authentication",
                  interface);
    return ssid;
}

Ssid slot_ssid(int interface, int slot) {
    Ssid ssid{};
    std::snprintf(ssid.clients, sizeof ssid.clients, "/runtime/stats/wlan/inf:%d/mssid:%d",
                  interface, slot);
    std::snprintf(ssid.authentication, sizeof ssid.authentication,
                  "/wlan/inf:%d/multi/index:%d/auth", interface, slot);
    std::snprintf(ssid.name, sizeof ssid.name, "MULTI-SSID index %d", slot);
    return ssid;
}

void read_field(ValueBuffer &value, const Ssid &ssid, int client, const char *field) {
    cfg_get(value, "%s/client:%d/%s", ssid.clients, client, field);
}

// Prints the client whose "time" has been read.
void print_client(const Ssid &ssid, int client, ValueBuffer &value) {
    static constexpr LabelledNode FIELDS[] = {
        {"rssi", "rssi"},           {"mode", "mode"},
        {"psmode", "psmode"},       {"rx_packets", "rxpacket"},
        {"tx_packets", "txpacket"}, {"rx_bytes", "rxbytes"},
        {"tx_bytes", "txbytes"},    {"ip", "ip"},
    };
    const auto print_field = [&](const char *label, const char *node) {
        read_field(value, ssid, client, node);
        cli_printf("Client%d--%s:%s\n", client, label, printable_text(value));
    };
    cli_printf("Client%d--time:%s\n", client, printable_text(value));
    read_field(value, ssid, client, "ssid_index"); // read, but not used
    cli_printf("Client%d--ssid: %s\n", client, ssid.name);
    print_field("mac", "mac");
    if (cfg_number("%s", ssid.authentication) == AUTH_DYNAMIC_WEP)
        cli_printf("Client%d--auth:802.1X\n", client);
    else
        print_field("auth", "auth");
    for (const LabelledNode &field : FIELDS)
        print_field(field.label, field.node);
    print_lines({"---------------------------------------------------------------------"});
}

// Ends at the first client with a connection time of 0.
void print_clients(const Ssid &ssid, ValueBuffer &value) {
    for (int client = 1; client <= LIST_BOUND; ++client) {
        read_field(value, ssid, client, "time");
        if (value.number() == 0)
            return;
        print_client(ssid, client, value);
    }
}

// Prints the counters below `tree`; returns the length of the last line.
int print_counters(const char *tree, ValueBuffer &value) {
    static constexpr LabelledNode COUNTERS[] = {
        {"rx_bytes", "rx/bytes"},     {"tx_bytes", "tx/bytes"}, {"rx_packets", "rx/packets"},
        {"tx_packets", "tx/packets"}, {"rx_drop", "rx/drop"},   {"tx_drop", "tx/drop"},
    };
    int printed = 0;
    for (const LabelledNode &counter : COUNTERS) {
        cfg_get(value, "%s/%s", tree, counter.node);
        printed = cli_printf("%s:%s\n", counter.label, value.text());
    }
    return printed;
}

} // namespace

int get_client_info(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    const int interface = interface_number(cli);
    print_clients(primary_ssid(interface), value);
    if (cfg_number("/wlan/inf:%d/multi/state", interface) == 1) {
        for (int slot = 1; slot <= LISTED_SLOTS; ++slot)
            print_clients(slot_ssid(interface, slot), value);
    }
    return CLI_DONE;
}

int get_ethernet_counters(CliContext &, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    run_command("sh /etc/templates/ethernet_count_refresh.sh");
    print_counters("/runtime/stats/ethernet", value);
    return CLI_DONE;
}

int get_wlan_counters(CliContext &, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    return print_counters("/runtime/stats/wireless/ath:0", value);
}
