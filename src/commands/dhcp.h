// The DHCP server for the LAN: its pool, what it hands out, its leases and its static leases.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

#include <algorithm>
#include <string_view>

inline constexpr int STATIC_LEASE_COUNT = 25;

// One word, stored as typed.
CliHandler set_dhcp_leasetime;

// Switch the static lease of the typed row on or off.
CliHandler enable_static_lease;
CliHandler disable_static_lease;

// Write a word to the first empty host name, address or MAC of the static leases; each column is
// filled separately. Refused when an entry before it holds the same text, or when all 25 are
// filled.
CliHandler add_static_hostname;
CliHandler add_static_ip;
CliHandler add_static_mac;

inline constexpr std::array<std::string_view, STATIC_LEASE_COUNT> STATIC_LEASE_NUMBERS = {
    "1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "10", "11", "12", "13",
    "14", "15", "16", "17", "18", "19", "20", "21", "22", "23", "24", "25",
};

inline constexpr auto STATIC_LEASE_WORDS = texts_around<2>("pool_", STATIC_LEASE_NUMBERS, "");
inline constexpr auto STATIC_LEASE_ENABLE_HELP =
    texts_around<2>("enable dhcp staticip pool ", STATIC_LEASE_NUMBERS, "");

consteval auto static_lease_disable_help() {
    auto help = texts_around<2>("disable dhcp staticip pool ", STATIC_LEASE_NUMBERS, "");
    // One says the opposite. Deliberate.
    std::ranges::copy(STATIC_LEASE_ENABLE_HELP[21], help[21].begin());
    return help;
}

inline constexpr auto STATIC_LEASE_DISABLE_HELP = static_lease_disable_help();

inline constinit auto static_lease_enable_rows =
    make_table(rows_for_each(STATIC_LEASE_WORDS, STATIC_LEASE_ENABLE_HELP, enable_static_lease));

inline constinit auto static_lease_disable_rows =
    make_table(rows_for_each(STATIC_LEASE_WORDS, STATIC_LEASE_DISABLE_HELP, disable_static_lease));

inline constexpr auto dhcp_set_rows = command_rows({
    family("dhcp_server", "Set dhcp server states ",
           switch_rows<"/lan/dhcp/server/enable", APPLY_DHCPD, "dhcp server">),
    // `get dhcp_staticip_mode` shows the running server's node instead. Deliberate, as is the
    // missing leading slash.
    family("dhcp_server_static_ip_mode", "Set dhcp server static ip mode states ",
           switch_rows<"lan/dhcp/server/pool:1/staticDhcp/enable", APPLY_DHCPD, "dhcp server">),
    // This address and the netmask restart the LAN, the others only the server. Deliberate.
    {"dhcp_startip", "Set dhcp server start ip  ",
     set_host_address<"/lan/dhcp/server/pool:1/startip", APPLY_LAN, "No IP Address!\n">},
    {"dhcp_endip", "Set dhcp server end ip  ",
     set_host_address<"/lan/dhcp/server/pool:1/endip", APPLY_DHCPD, "No IP Address!\n">},
    {"dhcp_dns", "Set dhcp server dns ip  ",
     set_host_address<"/lan/dhcp/server/pool:1/dns1", APPLY_DHCPD, "No IP Address!\n">},
    {"dhcp_gateway", "Set dhcp server gateway ip  ",
     set_host_address<"/lan/dhcp/server/pool:1/gateway", APPLY_DHCPD, "No gateway!\n">},
    {"dhcp_wins", "Set dhcp server wins ip  ",
     set_host_address<"/lan/dhcp/server/pool:1/primarywins", APPLY_DHCPD, "No wins!\n">},
    {"dhcp_netmask", "set dhcp server netmask",
     set_netmask<"/lan/dhcp/server/pool:1/netmask", APPLY_LAN>},
    {"dhcp_leasetime", "set dhcp server lease time", set_dhcp_leasetime},
    family("dhcp_staticip_set_enable", "set dhcp staticip enable", static_lease_enable_rows),
    family("dhcp_staticip_set_disable", "set dhcp staticip disable", static_lease_disable_rows),
    {"dhcp_staticip_set_hostname", "set dhcp staticip's hostname ", add_static_hostname},
    {"dhcp_staticip_set_ip", "set dhcp staticip's ip ", add_static_ip},
    {"dhcp_staticip_set_mac", "set dhcp staticip's mac <macaddradd macaddress>  ", add_static_mac},
});

inline constexpr auto dhcp_get_rows = command_rows({
    {"dhcp_dns", "Display dhcp server dns ip", run_fixed<"rgdb -g /lan/dhcp/server/pool:1/dns1">},
    {"dhcp_endip", "Display dhcp server end ip",
     run_fixed<"rgdb -g /lan/dhcp/server/pool:1/endip">},
    {"dhcp_gateway", "Display dhcp server gateway ip",
     run_fixed<"rgdb -g /lan/dhcp/server/pool:1/gateway">},
    {"dhcp_netmask", "Display dhcp server netmask",
     run_fixed<"rgdb -g /lan/dhcp/server/pool:1/netmask">},
    {"dhcp_startip", "Display dhcp server start ip",
     run_fixed<"rgdb -g /lan/dhcp/server/pool:1/startip">},
    {"dhcp_wins", "Display dhcp server wins ip",
     run_fixed<"rgdb -g /lan/dhcp/server/pool:1/primarywins">},
    // Labelled like the state. Deliberate.
    {"dhcp_leasetime", "Display dhcp server leasetime",
     show_text<"/lan/dhcp/server/pool:1/leasetime", "dhcp server:%s\n">},
    {"dhcp_server", "Display dhcp server states",
     show_switch<"/lan/dhcp/server/enable", "dhcp server:%s\n">},
    {"dhcp_staticip_mode", "Display dhcp server static mode states",
     show_switch<"/runtime/func/static_dhcp", "dhcp server static ip mode:%s\n">},
    {"dhcp_sta_expire", "Display dhcp server sta's expire time",
     show_list<"runtime/dhcpserver/lease:%d/expire", "sta's expire:%d-->%s\n">},
    {"dhcp_sta_hostname", "Display dhcp server sta's hostname",
     show_list<"runtime/dhcpserver/lease:%d/hostname", "sta's hostname:%d-->%s\n", NO_ENOUGH_MEMORY,
               printable_text>},
    {"dhcp_sta_mac", "Display dhcp server sta's mac",
     show_list<"runtime/dhcpserver/lease:%d/mac", "sta's mac:%d-->%s\n">},
    {"dhcp_sta_ip", "Display dhcp server sta's ip",
     show_list<"runtime/dhcpserver/lease:%d/ip", "sta's ip:%d-->%s\n">},
    {"dhcp_staticip_ip", "Display dhcp server static mode ip",
     show_list<"/lan/dhcp/server/pool:1/staticdhcp/entry:%d/ip", "statip mode ip:%d-->%s\n">},
    {"dhcp_staticip_mac", "Display dhcp server static mode mac",
     show_list<"/lan/dhcp/server/pool:1/staticdhcp/entry:%d/mac", "staticip mac:%d-->%s\n">},
    {"dhcp_staticip_hostname", "Display dhcp server static mode hostname",
     show_list<"lan/dhcp/server/pool:1/staticdhcp/entry:%d/hostname",
               "static ip hostname:%d-->%s\n">},
    {"dhcp_staticip_pool_state", "Display dhcp server static mode pool state",
     show_list<"/lan/dhcp/server/pool:1/staticdhcp/entry:%d/enable",
               "static ip pool state:%d-->%s\n", NO_ENOUGH_MEMORY, entry_name<switch_name>>},
});
