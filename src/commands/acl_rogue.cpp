#include "commands/acl_rogue.h"

#include "commands/radio.h"
#include "commands/shared/address_list.h"
#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstring>
#include <iterator>

namespace {

constexpr int ACL_CAPACITY = 256;
constexpr int ROGUE_CAPACITY = 64;
constexpr int SCAN_ROWS = 64;

AddressList access_control_list(const CliContext &cli) {
    return {{ACL_ADDRESSES, interface_number(cli)}, ACL_CAPACITY, "ACL", "mac"};
}

// The fields of an access point, as scanned and as classified.
constexpr char SCANNED[] = "/runtime/wlan/inf:%d/rogue_ap/client:%d/%s";
constexpr char CLASSIFIED[] = "/wlan/inf:%d/rogue_ap/client:%d/%s";

NumberedList classified_addresses(const CliContext &cli) {
    return {"/wlan/inf:%d/rogue_ap/client:%d/mac", interface_number(cli)};
}

NumberedList scanned_addresses(const CliContext &cli) {
    return {"/runtime/wlan/inf:%d/rogue_ap/client:%d/mac", interface_number(cli)};
}

// Null for a negative type.
const char *rogue_type_name(int type) {
    static constexpr char NAMES[][13] = {"NEW", "Valid", "Neighborhood", "Rogue"};
    if (type < 0)
        return nullptr;
    return NAMES[type < 3 ? type : 3];
}

// The text at index `number`, "" past the end.
template <std::size_t N>
const char *column_text(const char *const (&texts)[N], int number) {
    return number >= 0 && number < static_cast<int>(N) ? texts[number] : "";
}

void scan_for_access_points() {
    const ProgramText band(operating_band != 0 ? "a" : "g");
    run_command("sh /etc/templates/ap_scan.sh %s", band);
    run_command("sh /etc/templates/ap_comp.sh %s", band);
}

// Reads the nodes in column order. The columns do not line up with the heading. Deliberate.
void print_scan_result(int interface, int index, ReadTarget mac, ReadTarget ssid) {
    static constexpr const char *TYPES[] = {"new    ", "valid  ", "neighbor      ", "rogue  "};
    static constexpr const char *BANDS[] = {"B      ", "G   ", "N   ", "A   "};
    const auto number = [&](const char *field) {
        return cfg_number(SCANNED, interface, index, field);
    };
    cli_printf("%d       ", index);
    cli_printf("%s", column_text(TYPES, number("type")));
    cli_printf("%s", column_text(BANDS, number("band")));
    cli_printf("%d       ", number("channel"));
    cli_printf("%d/%%     ", number("rssi"));
    cfg_get(ssid, SCANNED, interface, index, "ssid");
    cli_printf("%s   %s  ", printable_text(ssid), printable_text(mac));
    cli_printf("%s\n", number("status") != 0 ? "Up" : "Down");
}

// The slot for a scan result: the one with its address, else the first free one, else the one after
// the last (deliberate). Reads the scanned address again for each slot. Nothing when an address
// could not be read.
std::optional<int> slot_for(const CliContext &cli, int scan_row, ValueBuffer &scanned,
                            ValueBuffer &classified) {
    for (int slot = 1; slot <= ROGUE_CAPACITY; ++slot) {
        if (scanned_addresses(cli).read(scanned, scan_row) != 0 ||
            classified_addresses(cli).read(classified, slot) != 0)
            return std::nullopt;
        if (classified.empty() || std::strcmp(classified.text(), scanned.text()) == 0)
            return slot;
    }
    return ROGUE_CAPACITY + 1;
}

constexpr char INTRUSION_USAGE[] = "Usage: set intrusion {index} {type}\n"
                                   "\t\ttype[0-3]:\t1:valid\n"
                                   "\t\t\t\t2:neighbor\n"
                                   "\t\t\t\t3:rogue\n"
                                   "\t\t\t\t0:new\n";

} // namespace

const char *acl_mode_name(int mode) {
    if (mode == 0)
        return "disable";
    return mode == 1 ? "accept" : "reject";
}

int add_acl_address(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer entry;
    if (!entry)
        return refuse(MEMORY_ERROR);
    MacText mac{};
    if (arg_count(cli) == 0 || arg_mac(cli, mac) == 0)
        return refuse("error macaddradd!\n");
    return add_address(access_control_list(cli), entry, mac.data());
}

int delete_acl_address(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer entry;
    if (!entry)
        return refuse(MEMORY_ERROR);
    const char *mac = arg_peek(cli, 0);
    if (mac == nullptr)
        return refuse("error macaddrdel!\n");
    return delete_address(access_control_list(cli), entry, mac);
}

int get_rogue_aps(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer mac;
    if (!mac)
        return refuse(MEMORY_ERROR);
    for (int index = 1; index <= LIST_BOUND; ++index) {
        cfg_get(mac, CLASSIFIED, interface_number(cli), index, "mac");
        // Read even past the last one.
        const int type = cfg_number(CLASSIFIED, interface_number(cli), index, "type");
        if (mac.empty())
            break;
        cli_printf("rogue ap client%d mac-->%s\n", index, printable_text(mac));
        if (const char *name = rogue_type_name(type))
            cli_printf("rogue ap client%d type-->%s\n", index, name);
    }
    return CLI_DONE;
}

int set_rogue_ap(CliContext &cli, const char *, CliCommand *) {
    const bool complete = arg_count(cli) == 3;
    const char *index = arg_next(cli);
    const char *type = arg_next(cli);
    const char *mac = arg_next(cli);
    if (!complete || std::strlen(mac) != std::size(MacText{}) - 1)
        return refuse("error rogue ap setting!\n");
    cli_printf("ddddd\n"); // a debugging trace. Deliberate.
    // Interface 1 for both bands. Deliberate.
    cfg_set(type, "/wlan/inf:1/rogue_ap/client:%s/type", index);
    cfg_set(mac, "/wlan/inf:1/rogue_ap/client:%s/mac", index);
    return mark_for_apply(APPLY_APSCAN);
}

int get_intrusion(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer mac;
    ValueBuffer ssid;
    if (!mac || !ssid)
        return refuse(MEMORY_ERROR);
    scan_for_access_points();
    print_lines({"===============================================================================",
                 "index   type   band   channel   rssi   ssid        mac                 status"});
    for_each_entry(scanned_addresses(cli), mac, SCAN_ROWS,
                   [&](int index) { print_scan_result(interface_number(cli), index, mac, ssid); });
    return CLI_DONE;
}

int set_intrusion(CliContext &cli, const char *, CliCommand *) {
    static constexpr char FIELDS[][8] = {"mac", "ssid", "channel", "band", "time", "status"};
    ValueBuffer scanned;
    ValueBuffer slot_mac;
    if (!scanned || !slot_mac)
        return refuse(MEMORY_ERROR);
    const bool complete = arg_count(cli) == 2;
    const char *index_word = arg_next(cli);
    const char *type = arg_next(cli);
    if (!complete || unsigned_value(type) > 3)
        return refuse(INTRUSION_USAGE);
    const int interface = interface_number(cli);
    const int index = decimal_value(index_word);
    const std::optional<int> slot = slot_for(cli, index, scanned, slot_mac);
    if (!slot)
        return CLI_REFUSED;
    cfg_set(type, CLASSIFIED, interface, *slot, "type");
    for (const char *field : FIELDS) {
        if (cfg_get(scanned, SCANNED, interface, index, field) != 0)
            return CLI_REFUSED;
        cfg_set(scanned.text(), CLASSIFIED, interface, *slot, field);
    }
    save_configuration();
    return CLI_DONE;
}
