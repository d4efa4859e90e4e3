#include "shell/row_visibility.h"

#include <cstring>

namespace {

// Bits of a band mask that show a row on each radio; any other band hides a masked row.
constexpr std::uint32_t BAND_MASKS[] = {0x19c, 0x601};

bool has_tag(const CliCommand &row, const char *tag) {
    return row.tag != nullptr && std::strcmp(row.tag, tag) == 0;
}

} // namespace

bool is_locked(const CliCommand &row) {
    return debug_locked == -1 && has_tag(row, DEBUG_TAG);
}

bool is_hidden(const CliCommand &row) {
    return has_tag(row, HIDDEN_TAG);
}

bool is_on_band(const CliContext &cli, const CliCommand &row) {
    if (row.band_mask == 0)
        return true;
    if (cli.current_band != 0 && cli.current_band != 1)
        return false;
    return (row.band_mask & BAND_MASKS[cli.current_band]) != 0;
}

bool is_listed(const CliContext &cli, const CliCommand &row) {
    const bool unlisted = debug_locked == -1 && is_hidden(row);
    return !unlisted && !is_locked(row) && is_on_band(cli, row);
}
