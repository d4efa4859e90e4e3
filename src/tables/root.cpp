#include "tables/root.h"

#include "shell/builtins.h"
#include "shell/dispatch.h"
#include "shell/listing.h"
#include "tables/clear.h"
#include "tables/get.h"
#include "tables/set.h"
#include "tables/test.h"

namespace {

constinit auto table = command_table({
    {"?", "Display CLI Command List", show_help, nullptr, HIDDEN_TAG},
    {"orvik", "Temporary factory admin (for RD debug only)", unlock_debug, nullptr, HIDDEN_TAG},
    {"exit", "Logout", exit_console, nullptr, HIDDEN_TAG},
    {"shell", "open shell", open_shell, nullptr, DEBUG_TAG},
    {"get", nullptr, dispatch_subtable, get_table.data()},
    {"help", "Display CLI Command List", show_help},
    {"ls", "List directory contents", list_directory, nullptr, HIDDEN_TAG},
    {"ping", "Send ICMP ECHO_REQUEST to network hosts", ping_host},
    {"pwd", "Print name of current/working directory", print_directory},
    {"reboot", "Reboot Access Point", reboot_device},
    {"set", nullptr, dispatch_subtable, set_table.data()},
    {"clear", nullptr, dispatch_subtable, clear_table.data()},
    {"test", nullptr, dispatch_subtable, test_table.data()},
});

} // namespace

CliCommand *root_table() {
    return table.data();
}
