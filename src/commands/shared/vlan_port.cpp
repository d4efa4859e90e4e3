#include "commands/shared/vlan_port.h"

#include "shell/args.h"
#include "shell/output.h"

int take_vlan_id(CliContext &cli) {
    DecimalText digits;
    if (const char *vid = take_value(cli, VLAN_ID_RULE, digits))
        return decimal_value(vid);
    cli_printf(VLAN_ID_ERROR);
    return 0;
}

LineIndex take_vlan_id_and_index(CliContext &cli, const IndexedPorts &ports, int &vid) {
    if (arg_count(cli) != 2) {
        cli_printf("%s%s", ports.set_refusal.wrong_count, ports.set_refusal.error_line);
        return {};
    }
    vid = take_vlan_id(cli);
    return vid != 0 ? take_index(cli, 1, ports.last_index, ports.set_refusal) : LineIndex{};
}
