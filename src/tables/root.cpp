#include "tables/root.h"

#include "commands/factory.h"
#include "commands/identity.h"
#include "shell/builtins.h"
#include "shell/dispatch.h"
#include "shell/listing.h"
#include "tables/clear.h"
#include "tables/del.h"
#include "tables/ftp.h"
#include "tables/get.h"
#include "tables/mfc.h"
#include "tables/set.h"
#include "tables/snmp.h"
#include "tables/ssl.h"
#include "tables/test.h"
#include "tables/tftp.h"

namespace {

constinit auto table = command_table({
    {"?", "Display CLI Command List", show_help, nullptr, HIDDEN_TAG},
    {"orvik", "Temporary factory admin (for RD debug only)", unlock_debug, nullptr, HIDDEN_TAG},
    {"del", nullptr, dispatch_subtable, del_table.data()},
    {"exit", "Logout", exit_console, nullptr, HIDDEN_TAG},
    {"shell", "open shell", open_shell, nullptr, DEBUG_TAG},
    {"ftp", "ftp Commands", dispatch_subtable, ftp_table.data(), DEBUG_TAG},
    {"tftp", "tftp Commands", dispatch_subtable, tftp_table.data()},
    {"get", nullptr, dispatch_subtable, get_table.data()},
    {"help", "Display CLI Command List", show_help},
    {"isfactorydefault", "Check if device is using factorydefault setting", compare_with_factory,
     nullptr, HIDDEN_TAG},
    {"ls", "List directory contents", list_directory, nullptr, HIDDEN_TAG},
    {"mem", "Display memory status", show_memory, nullptr, HIDDEN_TAG},
    {"ping", "Send ICMP ECHO_REQUEST to network hosts", ping_host},
    {"pwd", "Print name of current/working directory", print_directory},
    {"reboot", "Reboot Access Point", reboot_device},
    {"set", nullptr, dispatch_subtable, set_table.data()},
    {"clear", nullptr, dispatch_subtable, clear_table.data()},
    {"test", nullptr, dispatch_subtable, test_table.data()},
    {"snmp", "SNMP Commands", dispatch_subtable, snmp_table.data()},
    {"ssl", "SSL Command(s)", dispatch_subtable, ssl_table.data()},
    {"mfc", nullptr, dispatch_subtable, mfc_table.data(), DEBUG_TAG},
    {"version", "Display software version", show_version},
});

} // namespace

CliCommand *root_table() {
    return table.data();
}
