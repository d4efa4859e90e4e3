#include "commands/shared/vlan_port.h"

#include "shell/args.h"
#include "shell/output.h"

int take_vlan_id(CliContext &cli) {
    CheckedValue vid;
    if (vid.take(cli, VLAN_ID_RULE))
        return decimal_value(vid.text());
    cli_printf(VLAN_ID_ERROR);
    return 0;
}

const char *take_vlan_word(CliContext &cli) {
    const char *word = arg_next(cli);
    if (word == nullptr) {
        cli_printf("Wrong input parameters. Please input VLAN ID!\n");
        return nullptr;
    }
    if (is_vlan_id(decimal_value(word)))
        return word;
    // Without the full stop that it has elsewhere. Deliberate.
    cli_printf("Please specify the correct VLAN ID (%d~%d)\n", FIRST_VLAN_ID, LAST_VLAN_ID);
    return nullptr;
}

bool take_vlan_id_and_index(CliContext &cli, const IndexedPorts &ports, int &vid,
                            const char *&index) {
    if (arg_count(cli) != 2) {
        cli_printf("Wrong input parameters. Please input VLAN ID and %s index (1-%d).\n",
                   ports.name, ports.last_index);
        cli_printf(VLAN_ID_ERROR);
        return false;
    }
    vid = take_vlan_id(cli);
    if (vid == 0)
        return false;
    index = arg_next(cli);
    if (in_range(index, 1, ports.last_index) != 0)
        return true;
    cli_printf("Please input correct %s index: 1-%d\n", ports.other_name, ports.last_index);
    cli_printf(VLAN_ID_ERROR);
    return false;
}

const char *take_only_index(CliContext &cli, const IndexedPorts &ports) {
    const bool alone = arg_count(cli) == 1;
    if (is_only_word_in(cli, 1, ports.last_index))
        return arg_next(cli);
    cli_printf("%sPlease specify the correct %s index (1-%d).\n",
               alone ? "" : "Wrong input parameters. ", ports.name, ports.last_index);
    return nullptr;
}
