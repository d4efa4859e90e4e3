#include "commands/clients.h"

#include "commands/security.h"
#include "commands/shared/numbered_list.h"
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

// Where the clients of an SSID are, and how they log in.
class Ssid {
public:
    static constexpr int PRIMARY = 0;

    // `slot` is PRIMARY, or the number of a multi-SSID slot.
    Ssid(int interface, int slot) : interface_(interface), slot_(slot) {
        if (slot == PRIMARY)
            std::snprintf(clients_, sizeof clients_, "/runtime/stats/wlan/inf:%d", interface);
        else
            std::snprintf(clients_, sizeof clients_, "/runtime/stats/wlan/inf:%d/mssid:%d",
                          interface, slot);
    }

    void read(ReadTarget value, int client, const char *field) const {
        cfg_get(value, "%s/client:%d/%s", clients_, client, field);
    }

    [[nodiscard]] bool has_dynamic_wep() const {
        const int authentication =
            slot_ == PRIMARY ? cfg_number("/wlan/inf:%d/authentication", interface_)
                             : cfg_number("/wlan/inf:%d/multi/index:%d/auth", interface_, slot_);
        return authentication == AUTH_DYNAMIC_WEP;
    }

    void print_name(int client) const {
        if (slot_ == PRIMARY)
            cli_printf("Client%d--ssid: primary SSID\n", client);
        else
            cli_printf("Client%d--ssid: MULTI-SSID index %d\n", client, slot_);
    }

private:
    char clients_[64];
    int interface_;
    int slot_;
};

// Prints the client whose "time" has been read.
void print_client(const Ssid &ssid, int client, ValueBuffer &value) {
    static constexpr LabelledNode FIELDS[] = {
        {"rssi", "rssi"},           {"mode", "mode"},
        {"psmode", "psmode"},       {"rx_packets", "rxpacket"},
        {"tx_packets", "txpacket"}, {"rx_bytes", "rxbytes"},
        {"tx_bytes", "txbytes"},    {"ip", "ip"},
    };
    const auto print_field = [&](const char *label, const char *node) {
        ssid.read(value, client, node);
        cli_printf("Client%d--%s:%s\n", client, label, printable_text(value));
    };
    cli_printf("Client%d--time:%s\n", client, printable_text(value));
    ssid.read(value, client, "ssid_index"); // nothing comes of it
    ssid.print_name(client);
    print_field("mac", "mac");
    if (ssid.has_dynamic_wep())
        cli_printf("Client%d--auth:802.1X\n", client);
    else
        print_field("auth", "auth");
    for (const LabelledNode &field : FIELDS)
        print_field(field.label, field.node);
    print_lines({"---------------------------------------------------------------------"});
}

// Up to the first client that has been connected for no time.
void print_clients(const Ssid &ssid, ValueBuffer &value) {
    for (int client = 1; client <= LIST_BOUND; ++client) {
        ssid.read(value, client, "time");
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
    print_clients(Ssid(interface, Ssid::PRIMARY), value);
    if (cfg_number("/wlan/inf:%d/multi/state", interface) == 1) {
        for (int slot = 1; slot <= LISTED_SLOTS; ++slot)
            print_clients(Ssid(interface, slot), value);
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
