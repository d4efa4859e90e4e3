#include "config/apply.h"
#include "documents.h"
#include "syntax.h"

namespace {

constexpr Service SERVICES[] = {
    {APPLY_WAN, "wan", "the device's own address, who may manage it, its console"},
    {APPLY_WLAN, "wireless", "the radio with all its SSIDs; clients lose their connection"},
    {APPLY_NEAPC, "array", "membership of an access-point array"},
    {APPLY_SNMP, "snmp", "the SNMP agent"},
    {APPLY_DHCPD, "dhcp", "the DHCP server"},
    {APPLY_LAN, "lan", "the LAN side, with the DHCP server"},
    {APPLY_APSCAN, "ap-scan", "the search for access points around"},
    {APPLY_QOS, "qos", "quality of service; the restart of wireless covers it"},
    {APPLY_ARPSPOOF, "arp-spoofing", "ARP spoofing prevention"},
    {APPLY_WEB, "web", "the login of web server and console"},
};

} // namespace

std::vector<Service> services_of(std::uint32_t bits) {
    std::vector<Service> services;
    for (const Service &service : SERVICES) {
        if ((bits & service.bit) != 0)
            services.push_back(service);
    }
    return services;
}

std::string service_names(std::uint32_t bits) {
    std::vector<std::string> names;
    for (const Service &service : services_of(bits))
        names.emplace_back(service.name);
    return join_words(names, ", ");
}
