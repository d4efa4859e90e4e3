#include "commands/apply.h"

#include "config/apply.h"

int set_apply(CliContext &, const char *, CliCommand *) {
    return apply_changes() ? CLI_DONE : CLI_REFUSED;
}
