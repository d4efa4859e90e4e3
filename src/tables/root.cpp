#include "tables/root.h"

#include "commands/factory.h"
#include "commands/identity.h"
#include "commands/shared/rows.h"
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
    family("del", nullptr, del_table),
    {"exit", "Logout", exit_console, nullptr, HIDDEN_TAG},
    {"shell", "open shell", run_fixed<"sh">, nullptr, DEBUG_TAG},
    family("ftp", "ftp Commands", ftp_table, DEBUG_TAG),
    family("tftp", "tftp Commands", tftp_table),
    family("get", nullptr, get_table),
    {"help", "Display CLI Command List", show_help},
    {"isfactorydefault", "Check if device is using factorydefault setting", compare_with_factory,
     nullptr, HIDDEN_TAG},
    {"ls", "List directory contents", run_fixed<"ls">, nullptr, HIDDEN_TAG},
    {"mem", "Display memory status", show_memory, nullptr, HIDDEN_TAG},
    {"ping", "Send ICMP ECHO_REQUEST to network hosts", ping_host},
    {"pwd", "Print name of current/working directory", run_fixed<"pwd">},
    {"reboot", "Reboot Access Point", reboot_device},
    family("set", nullptr, set_table),
    family("clear", nullptr, clear_table),
    family("test", nullptr, test_table),
    family("snmp", "SNMP Commands", snmp_table),
    family("ssl", "SSL Command(s)", ssl_table),
    family("mfc", nullptr, mfc_table, DEBUG_TAG),
    {"version", "Display software version", show_version},
});

} // namespace

CliCommand *root_table() {
    return table.data();
}
