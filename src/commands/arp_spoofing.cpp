#include "commands/arp_spoofing.h"

#include "commands/shared/numbered_list.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

namespace {

constexpr int ARP_RULES = 8;
constexpr NumberedList ARP_RULE("/arpspoofing/static/index:%d");
constexpr NumberedList ARP_RULE_ADDRESS("/arpspoofing/static/index:%d/ip");
constexpr NumberedList ARP_RULE_MAC("/arpspoofing/static/index:%d/mac");

using ArpText = ShortValue<20>;

constexpr char ARP_ADD_USAGE[] = "set arpspoofing add <ip address> <mac address>\n";

} // namespace

int add_arp_rule(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 2)
        return refuse(ARP_ADD_USAGE);
    ArpText stored;
    const ListPlace place = find_in_list(ARP_RULE_ADDRESS, stored, "", ARP_RULES);
    // Checked before the words. Deliberate.
    if (place.result == SearchResult::Full)
        return refuse("Max rules num is 8! \nCan't add rule because table is full!\n");
    const std::optional<int> rule = place.vacancy;
    if (!rule)
        return CLI_REFUSED;
    std::uint32_t address = 0;
    MacText mac{};
    if (arg_ipv4(cli, address) == 0 || arg_mac(cli, mac) == 0)
        return refuse(ARP_ADD_USAGE);
    ARP_RULE_ADDRESS.write(*rule, ipv4_text(address).data());
    ARP_RULE_MAC.write(*rule, mac.data());
    return mark_for_apply(APPLY_ARPSPOOF);
}

int delete_arp_rule(CliContext &cli, const char *, CliCommand *) {
    if (!is_only_word_in(cli, 1, ARP_RULES))
        return refuse("set arpspoofing del <index>(1~8)\n"); // "del". Deliberate.
    ARP_RULE.remove(decimal_value(arg_next(cli)));
    return mark_for_apply(APPLY_ARPSPOOF);
}

int delete_arp_rules(CliContext &, const char *, CliCommand *) {
    cfg_del("/arpspoofing/static");
    cli_printf("ARP Spoofing List is Null!\n");
    return mark_for_apply(APPLY_ARPSPOOF);
}

int get_arp_rules(CliContext &, const char *, CliCommand *) {
    ArpText status;
    cfg_get(status, "/arpspoofing/enable");
    cli_printf("ARP Spoofing Status: %s\n", capital_enable_word(status.number() == 1));
    cli_printf("----------------ARP Spoofing Prevention Rules---------------\n"
               "Index\tGateway IP Address\tGateway MAC Address\n");
    ArpText address;
    for_each_entry(ARP_RULE_ADDRESS, address, ARP_RULES, [&](int index) {
        ArpText mac;
        static_cast<void>(ARP_RULE_MAC.read(mac, index)); // shown as empty when unreadable
        cli_printf("%d\t%s\t\t%s\n", index, address.text(), mac.text());
    });
    return CLI_DONE;
}
