#include "commands/identity.h"

#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstring>

namespace {

constexpr std::size_t NAME_LIMIT = 32;

// Writes the one word to the node of `path`. Refuses a longer one with the line `too_long` and
// everything that it refuses with the line `failed`.
int write_name(CliContext &cli, const char *path, const char *too_long, const char *failed) {
    if (arg_count(cli) != 1)
        return refuse("%s\n", failed);
    const char *name = arg_next(cli);
    if (std::strlen(name) > NAME_LIMIT)
        return refuse("%s\n%s\n", too_long, failed);
    cfg_set(name, "%s", path);
    pending_apply |= APPLY_WAN;
    return CLI_DONE;
}

} // namespace

int get_runtime(CliContext &, const char *, CliCommand *) {
    static constexpr struct {
        const char *label;
        const char *field;
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

int set_location(CliContext &cli, const char *, CliCommand *) {
    return write_name(cli, "/sys/systemLocation", " Location Data too long.",
                      "ERROR: Unable to set Location Data.");
}

int set_system_name(CliContext &cli, const char *, CliCommand *) {
    return write_name(cli, "/sys/systemname", " Name too long.",
                      "ERROR: Unable to set system Name.");
}
