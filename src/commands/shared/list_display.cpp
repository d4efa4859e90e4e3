#include "commands/shared/list_display.h"

// The formats come from template arguments of this program's own rows.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

int show_entries(const NumberedList &list, int limit, const char *format,
                 const char *memory_message, EntryText *text) {
    ValueBuffer value;
    if (!value)
        return refuse("%s", memory_message);
    for_each_entry(list, value, limit, [&](int index) {
        cli_printf(format, index, text != nullptr ? text(value) : value.text());
    });
    return CLI_DONE;
}
