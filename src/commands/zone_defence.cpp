#include "commands/zone_defence.h"

#include "commands/shared/address.h"
#include "commands/shared/address_list.h"
#include "shell/output.h"

#include <arpa/inet.h>

namespace {

// add_address or delete_address.
using ListOperation = int(const AddressList &list, ReadTarget value, const char *address);

AddressList zone_list(const NumberedList &entries) {
    return {entries, 64, "Zonedefence IP", "ip"};
}

int change_ipv4_list(CliContext &cli, ListOperation *operation) {
    ValueBuffer entry;
    if (!entry)
        return refuse(NO_ENOUGH_MEMORY);
    Ipv4Text address{};
    if (!take_host_address(cli, address))
        return refuse("No IP Address!\n");
    return operation(zone_list({ZONE_ADDRESSES, interface_number(cli)}), entry, address.data());
}

int change_ipv6_list(CliContext &cli, ListOperation *operation) {
    ValueBuffer entry;
    if (!entry)
        return refuse("Too few memory.\n");
    const char *word = arg_next(cli);
    if (word == nullptr)
        return refuse("Command line is not complete.\n");
    if (arg_count(cli) > 0)
        return refuse("No IP Address!\n");
    in6_addr binary{};
    if (inet_pton(AF_INET6, word, &binary) != 1)
        return refuse("Illegal format.\n");
    char address[INET6_ADDRSTRLEN] = {};
    if (inet_ntop(AF_INET6, &binary, address, sizeof address) == nullptr)
        return refuse("System Error!!!\n");
    // The first radio's list on either band. Deliberate.
    const NumberedList entries("/wlan/inf:1/zonedefence_ip/ipv6addr:%d");
    return operation(zone_list(entries), entry, address);
}

} // namespace

int enable_zone_defence(CliContext &cli, const char *, CliCommand *) {
    write_fixed_value(cli, "/wlan/inf:%d/zonedefence", "1", APPLY_WLAN, "");
    return write_fixed_value(cli, "/wlan/inf:%d/acl/mode", "2", APPLY_WLAN, "");
}

int add_zone_address(CliContext &cli, const char *, CliCommand *) {
    return change_ipv4_list(cli, add_address);
}

int delete_zone_address(CliContext &cli, const char *, CliCommand *) {
    return change_ipv4_list(cli, delete_address);
}

int add_zone_ipv6_address(CliContext &cli, const char *, CliCommand *) {
    return change_ipv6_list(cli, add_address);
}

int delete_zone_ipv6_address(CliContext &cli, const char *, CliCommand *) {
    return change_ipv6_list(cli, delete_address);
}
