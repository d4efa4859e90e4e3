#include "commands/limited_admin.h"

#include "commands/shared/vlan_port.h"
#include "config/apply.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <arpa/inet.h>

namespace {

constexpr int POOLS = 4;

enum class PoolSearch : std::uint8_t { Found, None, Unreadable };

PoolSearch find_pool() {
    for (int pool = 1; pool <= POOLS; ++pool) {
        for (const char *edge : {"ippoolstart", "ippoolend"}) {
            UsualValue text;
            if (cfg_get(text, "/sys/adminlimit/ipentry/index:%d/%s", pool, edge) != 0)
                return PoolSearch::Unreadable;
            // An invalid address counts, too: inet_addr does not return 0 for it. Deliberate.
            if (!text.empty() && inet_addr(text.text()) != 0)
                return PoolSearch::Found;
        }
    }
    return PoolSearch::None;
}

void write_pool(int pool, const char *start, const char *end) {
    cfg_set(start, "/sys/adminlimit/ipentry/index:%d/ippoolstart", pool);
    cfg_set(end, "/sys/adminlimit/ipentry/index:%d/ippoolend", pool);
    mark_for_apply(APPLY_WAN);
}

void print_type_usage() {
    print_lines({"Please specify available Limited Administration type.",
                 "    0: Limited Administration Disabled", "    1: Administration with VID",
                 "    2: Administration with Limited IP address",
                 "    3: Both VID and IP address"});
}

int switch_vlan_off() {
    const std::optional<int> state = cfg_read_number("/sys/vlan_state");
    if (!state)
        return CLI_REFUSED;
    if (*state != 1)
        return CLI_DONE;
    cli_printf("If admin vlan enable, vlan status will be disable.\n");
    cfg_set("0", "/sys/vlan_state");
    return mark_for_apply(APPLY_WLAN);
}

// Removes the pools from the type when there is none.
int drop_address_limit() {
    const std::optional<int> type = cfg_read_number(ADMIN_LIMIT_TYPE);
    if (!type)
        return CLI_REFUSED;
    if (!includes_limit(*type, LIMITED_BY_ADDRESS))
        return CLI_DONE;
    const PoolSearch search = find_pool();
    if (search == PoolSearch::Unreadable)
        return CLI_REFUSED;
    if (search == PoolSearch::None) {
        cfg_set_number(*type & LIMITED_BY_VLAN, ADMIN_LIMIT_TYPE);
        cli_printf("Limit Admin IP will be disabled if the Limit Admin IP rule list is null!\n");
    }
    return CLI_DONE;
}

} // namespace

bool includes_limit(int type, int limit) {
    return type >= 0 && type <= LIMITED_BY_BOTH && (type & limit) != 0;
}

int set_admin_limit_type(CliContext &cli, const char *, CliCommand *) {
    if (!is_only_word_in(cli, 0, LIMITED_BY_BOTH)) {
        print_type_usage();
        return CLI_DONE;
    }
    const char *word = arg_next(cli);
    const int type = decimal_value(word);
    const PoolSearch search =
        includes_limit(type, LIMITED_BY_ADDRESS) ? find_pool() : PoolSearch::Found;
    if (search == PoolSearch::Unreadable)
        return CLI_REFUSED;
    if (search == PoolSearch::None) {
        cli_printf("Please add Limit Admin IP rule!\n");
        return CLI_DONE;
    }
    cfg_set(word, ADMIN_LIMIT_TYPE);
    mark_for_apply(APPLY_WAN);
    return includes_limit(type, LIMITED_BY_VLAN) ? switch_vlan_off() : CLI_DONE;
}

int set_admin_limit_vid(CliContext &cli, const char *, CliCommand *) {
    if (!is_only_word_in(cli, FIRST_VLAN_ID, LAST_VLAN_ID)) {
        cli_printf("Please specify valid VLAN ID (1-4094).\n");
        return CLI_DONE;
    }
    cfg_set(arg_next(cli), "/sys/adminlimit/vlanid");
    return mark_for_apply(APPLY_WAN);
}

int add_admin_pool(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 3) {
        cli_printf("Please specify valid index, start and end IP address.\n");
        return CLI_DONE;
    }
    const int pool = decimal_value(arg_next(cli));
    if (pool < 1 || pool > POOLS)
        return CLI_DONE; // silently. Deliberate.
    const char *start = arg_next(cli);
    write_pool(pool, start, arg_next(cli));
    return drop_address_limit();
}

// Deleting the last pool does not change the type; only adding checks. Deliberate.
int delete_admin_pool(CliContext &cli, const char *, CliCommand *) {
    if (is_only_word_in(cli, 1, POOLS))
        write_pool(decimal_value(arg_next(cli)), "", "");
    else
        cli_printf("Please specify valid index (1-4).\n");
    return CLI_DONE;
}

int get_admin_limit_vid(CliContext &, const char *, CliCommand *) {
    UsualValue vid;
    if (cfg_get(vid, "/sys/adminlimit/vlanid") != 0)
        return refuse(FAIL_TO_ALLOCATE);
    if (is_vlan_id(vid.number()))
        cli_printf("Limited Administration VLAN ID: %d\n", vid.number());
    else
        cli_printf("Error: not valid VLAN ID\n");
    return CLI_DONE;
}

int get_admin_pool(CliContext &cli, const char *, CliCommand *) {
    if (!is_only_word_in(cli, 1, POOLS)) {
        cli_printf("Please specify pool index (1-4).\n");
        return CLI_DONE;
    }
    const int pool = decimal_value(arg_next(cli));
    ValueBuffer start;
    ValueBuffer end;
    if (!start || !end ||
        cfg_get(start, "/sys/adminlimit/ipentry/index:%d/ippoolstart", pool) != 0 ||
        cfg_get(end, "/sys/adminlimit/ipentry/index:%d/ippoolend", pool) != 0)
        return refuse(FAIL_TO_ALLOCATE);
    cli_printf("Limited Administration IP address pool %d: from %s to %s\n", pool, start.text(),
               end.text());
    return CLI_DONE;
}
