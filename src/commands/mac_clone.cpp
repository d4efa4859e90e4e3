#include "commands/mac_clone.h"

#include "config/apply.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstring>
#include <iterator>

namespace {

// The words, by the numbers that are stored for them.
constexpr const char *CLONE_TYPES[] = {"disable", "auto", "manual"};

void print_clone_type(const char *type) {
    cli_printf("MAC address clone type: %s.\n", type);
}

} // namespace

int set_clone_type(CliContext &cli, const char *, CliCommand *) {
    const char *word = arg_peek(cli, 0);
    if (word == nullptr)
        return CLI_REFUSED;
    for (const char *const &type : CLONE_TYPES) {
        if (std::strcmp(word, type) != 0)
            continue;
        cfg_set_number(&type - CLONE_TYPES, "/wlan/inf:1/macclone/type");
        print_clone_type(type);
        return mark_for_apply(APPLY_WLAN);
    }
    cli_printf("unknown clone type.\n");
    return CLI_DONE;
}

int set_clone_address(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) == 0)
        return CLI_DONE;
    MacText address{};
    if (arg_mac(cli, address) == 0) {
        cli_printf("Wrong format of MAC address.\n");
        return CLI_DONE;
    }
    cfg_set(address.data(), "/wlan/inf:1/macclone/addr");
    cli_printf("MAC clone address: %s\n", address.data());
    return mark_for_apply(APPLY_WLAN);
}

int get_clone_type(CliContext &, const char *, CliCommand *) {
    ShortValue<10> stored;
    cfg_get(stored, "/wlan/inf:1/macclone/type");
    const int type = stored.number();
    if (type >= 0 && type < static_cast<int>(std::size(CLONE_TYPES)))
        print_clone_type(CLONE_TYPES[type]);
    else
        cli_printf("MAC address clone is disabled.\n");
    return CLI_DONE;
}
