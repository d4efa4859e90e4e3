#include "commands/identity.h"

#include "config/node_access.h"
#include "shell/output.h"

int get_runtime(CliContext &, const char *, CliCommand *) {
    static constexpr struct {
        char label[21];
        char field[17];
    } FIELDS[] = {
        {"RUNTIME_VERSION", "firmwareversion"},
        {"RUNTIME_REV_VERSION", "firmwareverreve"},
        {"RUNTIME_Build_number", "firmwarebuildno"},
        {"RUNTIME_DATA", "firmwarebuildate"},
    };
    ValueBuffer value(200);
    if (!value)
        return refuse(MEMORY_ERROR);
    for (const auto &[label, field] : FIELDS) {
        cfg_get(value, "/runtime/sys/info/%s", field);
        cli_printf("\n %s: %s\n", label, value.text());
    }
    return CLI_DONE;
}
