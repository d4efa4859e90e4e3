#include "commands/web.h"

#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstring>

namespace {

constexpr char WEB_NODE[] = "/sys/web/enable";

void start_web_server() {
    if (cfg_set_plain("1", WEB_NODE) != 0) {
        cli_printf("\nUnable to set enable!\n");
        return;
    }
    save_configuration();
    run_command("/etc/templates/webs.sh start");
    cli_printf("\nSet WEB state to enable successfully!\n");
}

// Stops the server even if the state cannot be written.
void stop_web_server() {
    run_command("/etc/templates/webs.sh stop");
    if (cfg_set_plain("0", WEB_NODE) != 0) {
        cli_printf("\nUnable to set disable!\n");
        return;
    }
    save_configuration();
    cli_printf("\nSet WEB state to disable successfully!\n");
}

} // namespace

int set_web(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1) {
        cli_printf("set web enable/disable\n");
        return CLI_DONE;
    }
    const char *word = arg_next(cli);
    if (std::strcmp(word, "enable") == 0)
        start_web_server();
    else if (std::strcmp(word, "disable") == 0)
        stop_web_server();
    else
        return refuse("\nInvalid Status!!\n");
    return CLI_DONE;
}

int get_web(CliContext &, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    if (cfg_get_plain(value, WEB_NODE) == 0)
        cli_printf("WEB\tStatus: %s\n", capital_enable_word(value.number() != 0));
    return CLI_DONE;
}

int get_assoc_limit(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer number;
    if (!number)
        return refuse(MEMORY_ERROR);
    const int limited = cfg_number("/wlan/inf:%d/assoc_limit/enable", interface_number(cli));
    cfg_get(number, "/wlan/inf:%d/assoc_limit/number", interface_number(cli));
    cli_printf("ASSOC Limit = %s\n", switch_name(limited));
    cli_printf("Max STA number = %s\n", number.text());
    return CLI_DONE;
}
