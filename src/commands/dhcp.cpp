#include "commands/dhcp.h"

#include "commands/shared/address.h"
#include "commands/shared/numbered_list.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

namespace {

// One column of the static leases, and its refusals.
struct StaticColumn {
    NumberedList list;
    const char *exists;
    const char *full;
};

constexpr StaticColumn HOST_NAMES = {
    NumberedList("/lan/dhcp/server/pool:1/staticdhcp/entry:%d/hostname"),
    "error! the hostname already exist!\n", "pool is full !\n"};
constexpr StaticColumn ADDRESSES = {NumberedList("/lan/dhcp/server/pool:1/staticdhcp/entry:%d/ip"),
                                    "error! sta ip already exist!\n", "pool is full!\n"};
constexpr StaticColumn MACS = {NumberedList("/lan/dhcp/server/pool:1/staticdhcp/entry:%d/mac"),
                               "error! the mac address already exist!\n", "pool is full!\n"};

// `stored` is the buffer for the entries.
int add_to_column(const StaticColumn &column, ValueBuffer &stored, const char *text) {
    // Entries past the end of the pool are searched for duplicates, too.
    const ListPlace place = find_in_list(column.list, stored, text, LIST_BOUND);
    if (place.result == SearchResult::Unreadable)
        return CLI_REFUSED;
    if (place.result == SearchResult::Match)
        return refuse("%s", column.exists);
    const std::optional<int> vacancy = place.vacancy;
    if (!vacancy || *vacancy > STATIC_LEASE_COUNT)
        return refuse("%s", column.full);
    column.list.write(*vacancy, text);
    return mark_for_apply(APPLY_DHCPD);
}

// `leases` is the first row of the table with the row that was typed.
int switch_static_lease(const CliCommand *leases, const char *state) {
    const auto number = static_cast<int>(current_command - leases) + 1;
    cfg_set(state, "/lan/dhcp/server/pool:1/staticdhcp/entry:%d/enable", number);
    return mark_for_apply(APPLY_DHCPD);
}

} // namespace

int set_dhcp_leasetime(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("Error setting.\n");
    cfg_set(arg_next(cli), "/lan/dhcp/server/pool:1/leasetime");
    return mark_for_apply(APPLY_DHCPD);
}

int enable_static_lease(CliContext &, const char *, CliCommand *) {
    return switch_static_lease(static_lease_enable_rows.data(), "1");
}

int disable_static_lease(CliContext &, const char *, CliCommand *) {
    return switch_static_lease(static_lease_disable_rows.data(), "0");
}

int add_static_hostname(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer stored;
    if (!stored)
        return refuse(NO_ENOUGH_MEMORY);
    const char *name = arg_next(cli);
    if (name == nullptr)
        return refuse("error hostname !\n");
    return add_to_column(HOST_NAMES, stored, name);
}

int add_static_ip(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer stored;
    if (!stored)
        return refuse(NO_ENOUGH_MEMORY);
    Ipv4Text address{};
    if (!take_host_address(cli, address))
        return refuse("No IP Address!\n");
    return add_to_column(ADDRESSES, stored, address.data());
}

int add_static_mac(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer stored;
    if (!stored)
        return refuse(NO_ENOUGH_MEMORY);
    MacText mac{};
    if (arg_count(cli) == 0 || arg_mac(cli, mac) == 0)
        return refuse("error macaddradd!\n");
    return add_to_column(MACS, stored, mac.data());
}
