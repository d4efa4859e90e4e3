#include "commands/fixed_rate.h"

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "config/node_access.h"
#include "shell/output.h"

namespace {

int rate_code(const CliContext &cli, const FixedRate &rate) {
    return cli.current_band == 0 ? rate.code_2g : rate.code_5g;
}

const char *rate_word(const CliContext &cli, int code) {
    const char *lowest = nullptr;
    for (const FixedRate &rate : FIXED_RATES) {
        if (rate_code(cli, rate) == NO_RATE_CODE)
            break;
        if (rate_code(cli, rate) == code)
            return rate.word;
        lowest = rate.word;
    }
    return lowest;
}

} // namespace

int set_fixed_rate(CliContext &cli, const char *, CliCommand *) {
    const FixedRate &rate = item_of_current_row(FIXED_RATES, fixed_rate_rows);
    const int code = rate_code(cli, rate);
    if (code != NO_RATE_CODE)
        cfg_set_number(code, "/wlan/inf:%d/fixedrate", interface_number(cli));
    return mark_for_apply(APPLY_WLAN);
}

int get_fixed_rate(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer code;
    if (!code)
        return refuse(MEMORY_ERROR);
    cfg_get(code, "/wlan/inf:%d/fixedrate", interface_number(cli));
    cli_printf("fixedrate:%s\n", rate_word(cli, code.number()));
    return CLI_DONE;
}
