#include "commands/aparray.h"

#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <iterator>
#include <string_view>

namespace {

constexpr std::size_t ARRAY_NAME_LIMIT = 32;

const char *role_name(int role) {
    static constexpr char NAMES[][14] = {"master", "backup master", "slaver"};
    return role >= 1 && role <= 3 ? NAMES[role - 1] : "unknown";
}

// The item of the row that runs: its name is the item's word, or ends in it among the get rows.
const SyncItem &sync_item_of_current_row() {
    std::string_view word = current_command->name;
    if (word.starts_with(SYNC_ROW_PREFIX))
        word.remove_prefix(std::string_view(SYNC_ROW_PREFIX).size());
    return *std::find_if(std::begin(SYNC_ITEMS), std::end(SYNC_ITEMS),
                         [word](const SyncItem &item) { return word == item.word; });
}

int write_sync_flag(bool on) {
    const SyncItem &item = sync_item_of_current_row();
    cfg_set_plain(on ? "1" : "0", item.node);
    // One of the 64 messages has two blanks. Deliberate.
    const bool two_blanks = !on && std::strcmp(item.word, "ssid") == 0;
    cli_printf("Ap Array Sync %c%s%s State: %s\n",
               std::toupper(static_cast<unsigned char>(*item.word)), item.word + 1,
               two_blanks ? " " : "", capital_enable_word(on));
    return mark_for_apply(APPLY_NEAPC);
}

} // namespace

int set_array_name(CliContext &cli, const char *, CliCommand *) {
    const char *name = arg_next(cli);
    if (name == nullptr)
        return refuse("No arrayname!\n");
    cli_printf("AP array arrayname:%s\n", name); // even if it is refused
    if (std::strlen(name) > ARRAY_NAME_LIMIT)
        return refuse("No arrayname!\n");
    cfg_set(name, "/wlan/inf:1/arrayname");
    return mark_for_apply(APPLY_NEAPC);
}

int get_array_role(CliContext &, const char *, CliCommand *) {
    ValueBuffer role;
    if (!role)
        return refuse(CANT_ALLOC_MEMORY);
    cfg_get(role, "/wlan/inf:1/arrayrole_original");
    cli_printf("AP array role is %s\n", role_name(role.number()));
    cfg_get(role, "/wlan/inf:1/arrayrole");
    cli_printf("(current role is %s)\n", role_name(role.number()));
    return CLI_DONE;
}

int enable_array_sync(CliContext &, const char *, CliCommand *) {
    return write_sync_flag(true);
}

int disable_array_sync(CliContext &, const char *, CliCommand *) {
    return write_sync_flag(false);
}

int get_array_sync(CliContext &, const char *, CliCommand *) {
    ValueBuffer flag;
    if (!flag)
        return refuse(CANT_ALLOC_MEMORY);
    const SyncItem &item = sync_item_of_current_row();
    cfg_get_plain(flag, item.node);
    cli_printf("AP Array sync %s status is %s\n", item.word, switch_name(flag.number()));
    return CLI_DONE;
}
