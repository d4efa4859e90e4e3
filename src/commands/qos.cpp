#include "commands/qos.h"

#include "commands/shared/numbered_list.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <arpa/inet.h>
#include <string_view>

namespace {

constexpr int RULES = 64;
constexpr std::uint32_t PORT_LIMIT = 65536;
constexpr std::size_t NAME_LIMIT = 100; // in the list
constexpr NumberedList RULE("/qos/rule/index:%d");

bool is_rule(int index) {
    return index >= 1 && index <= RULES;
}

constexpr char ADD_USAGE[] =
    "set qos rule add <index>(1~64) [OPTION]\n"
    "\nOptions:\n"
    "             name <Rule Name>\n"
    "             priority <Priority>(0:Voice/1:Video/2:Best Effort/3:Background)\n"
    "             protocol <IP Protocol>(0~256)\n"
    "             host1ip <IP Address> <Range>\n"
    "             host1port <IP Port> <Range>(0~65535)\n"
    "             host2ip <IP Address> <Range>\n"
    "             host2port <IP Port> <Range>(0~65535)\n";

// The options. Each takes its words, checks and writes them. False, with nothing written, when one
// is invalid.

// Some nodes are written with a slash after their path, and read without it. Deliberate.
bool add_name(CliContext &cli, int rule, int) {
    cfg_set(arg_next(cli), "/qos/rule/index:%d/name/", rule);
    return true;
}

bool add_priority(CliContext &cli, int rule, int) {
    const char *priority = arg_next(cli);
    if (in_range(priority, 0, 3) == 0)
        return false;
    cfg_set(priority, "/qos/rule/index:%d/priority/", rule);
    return true;
}

const char *protocol_class(int protocol) {
    switch (protocol) {
    case 6: // TCP
        return "1";
    case 17: // UDP
        return "2";
    case 1: // ICMP
        return "4";
    case 256: // any
        return "0";
    default:
        return "5";
    }
}

bool add_protocol(CliContext &cli, int rule, int) {
    const char *protocol = arg_next(cli);
    if (in_range(protocol, 0, 256) == 0)
        return false;
    cfg_set(protocol, "/qos/rule/index:%d/protocol/", rule);
    cfg_set(protocol_class(decimal_value(protocol)), "/qos/rule/index:%d/protocoltype/", rule);
    return true;
}

bool add_addresses(CliContext &cli, int rule, int host) {
    const char *start = arg_peek(cli, 0);
    std::uint32_t address = 0;
    if (arg_ipv4(cli, address) == 0)
        return false;
    const std::uint32_t first = ntohl(address);
    const char *range = arg_next(cli);
    const std::uint32_t count = unsigned_value(range);
    if (count < 1 || count > 254 || (first & 0xff) + count - 1 > 254)
        return false;
    cfg_set(start, "/qos/rule/index:%d/host%d/startip", rule, host);
    cfg_set(ipv4_text(htonl(first + count - 1)).data(), "/qos/rule/index:%d/host%d/endip", rule,
            host);
    cfg_set(range, "/qos/rule/index:%d/host%d/iprange", rule, host);
    return true;
}

bool add_ports(CliContext &cli, int rule, int host) {
    const char *start = arg_next(cli);
    const char *range = arg_next(cli);
    const std::uint32_t first = unsigned_value(start);
    // A count of 0 or less gives a last port below the first. Deliberate.
    const std::uint32_t last = first + unsigned_value(range) - 1;
    if (first >= PORT_LIMIT || last >= PORT_LIMIT)
        return false;
    cfg_set(start, "/qos/rule/index:%d/host%d/startport", rule, host);
    cfg_set_number(last, "/qos/rule/index:%d/host%d/endport", rule, host);
    cfg_set(range, "/qos/rule/index:%d/host%d/portrange", rule, host);
    return true;
}

// An option of a rule.
struct RuleOption {
    bool (*add)(CliContext &cli, int rule, int host);
    std::string_view word; // an administrator's word must begin with it
    int words;             // on the line, with the index
    int host;              // 1 or 2, or 0
};

constexpr RuleOption RULE_OPTIONS[] = {
    {add_name, "name", 3, 0},         {add_priority, "priority", 3, 0},
    {add_protocol, "protocol", 3, 0}, {add_addresses, "host1ip", 4, 1},
    {add_addresses, "host2ip", 4, 2}, {add_ports, "host1port", 4, 1},
    {add_ports, "host2port", 4, 2},
};

const RuleOption *find_option(std::string_view word, int words) {
    for (const RuleOption &option : RULE_OPTIONS) {
        if (option.words == words && word.starts_with(option.word))
            return &option;
    }
    return nullptr;
}

int switch_rule(CliContext &cli, const char *command, const char *state) {
    if (arg_count(cli) != 1)
        return refuse("set qos rule %s <index>(1~64)\n", command);
    const int rule = decimal_value(arg_next(cli));
    if (!is_rule(rule))
        return refuse(ADD_USAGE);
    cfg_set(state, "/qos/rule/index:%d/state", rule);
    return mark_for_apply(APPLY_QOS);
}

// A field of a rule as the list shows it.
class RuleField {
public:
    RuleField(int rule, const char *field, std::size_t limit = ValueBuffer::USUAL_LIMIT) {
        ReadTarget target(text_);
        target.limit = limit;
        cfg_get(target, "/qos/rule/index:%d/%s", rule, field);
    }
    RuleField(int rule, int host, const char *field) {
        cfg_get(text_, "/qos/rule/index:%d/host%d/%s", rule, host, field);
    }

    [[nodiscard]] const char *text() const { return text_.text(); }
    [[nodiscard]] bool empty() const { return text_.empty(); }
    [[nodiscard]] bool begins_with(char c) const { return *text() == c; }
    [[nodiscard]] const char *text_or_any() const { return empty() ? "any" : text(); }

private:
    UsualValue text_;
};

void print_host(int rule, int host) {
    cli_printf("    Host %d IP Address (Port): %s~", host,
               RuleField(rule, host, "startip").text_or_any());
    cli_printf("%s(", RuleField(rule, host, "endip").text_or_any());
    cli_printf("%s~", RuleField(rule, host, "startport").text_or_any());
    cli_printf("%s)\n", RuleField(rule, host, "endport").text_or_any());
}

void print_rule(int rule, const RuleField &name) {
    cli_printf("Rule %d:\n", rule);
    cli_printf("    Name: %s\n", name.text());
    cli_printf("    Status: %s\n", capital_enable_word(RuleField(rule, "state").begins_with('1')));
    // Every class but the first is shown as the last. Deliberate.
    cli_printf("    Priority: %s\n",
               RuleField(rule, "priority").begins_with('0') ? "Voice" : "Background");
    cli_printf("    Protocol: %s\n", RuleField(rule, "protocol").text());
    print_host(rule, 1);
    print_host(rule, 2);
}

} // namespace

int add_qos_rule(CliContext &cli, const char *, CliCommand *) {
    const int words = arg_count(cli);
    if (words < 3)
        return refuse(ADD_USAGE);
    const int rule = decimal_value(arg_next(cli));
    const RuleOption *option = find_option(arg_next(cli), words);
    if (!is_rule(rule) || option == nullptr || !option->add(cli, rule, option->host))
        return refuse(ADD_USAGE);
    return mark_for_apply(APPLY_QOS);
}

int apply_qos_rule(CliContext &cli, const char *, CliCommand *) {
    return switch_rule(cli, "apply", "1");
}

int suspend_qos_rule(CliContext &cli, const char *, CliCommand *) {
    return switch_rule(cli, "suspend", "0");
}

int delete_qos_rule(CliContext &cli, const char *, CliCommand *) {
    if (!is_only_word_in(cli, 1, RULES)) {
        cli_printf("set qos rule delete <index>(1~64)\n");
        return CLI_DONE; // no refusal. Deliberate.
    }
    RULE.remove(decimal_value(arg_next(cli)));
    return mark_for_apply(APPLY_QOS);
}

int list_qos_rules(CliContext &, const char *, CliCommand *) {
    for (int rule = 1; rule <= RULES; ++rule) {
        const RuleField name(rule, "name", NAME_LIMIT);
        if (!name.empty())
            print_rule(rule, name);
    }
    return CLI_DONE;
}
