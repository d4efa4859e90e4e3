// Displays of the database's lists, a line for each entry up to the first empty one.
#pragma once

#include "commands/shared/fixed_value.h"
#include "commands/shared/numbered_list.h"
#include "shell/output.h"

// What is shown of an entry: see printable_text.
using EntryText = const char *(ReadTarget entry);

// The name of an entry's number.
template <NumberName *Name>
const char *entry_name(ReadTarget entry) {
    return Name(decimal_value(entry.data));
}

// Prints `format` with the number of each of the entries 1..limit for its "%d", and for its "%s"
// the entry's text, or what `text` makes of it. Returns 0; or -1 after `memory_message`.
int show_entries(const NumberedList &list, int limit, const char *format,
                 const char *memory_message, EntryText *text);

// The handler of such a row. Where the pattern has two "%d" the first is for the number of the
// current band's interface.
template <FixedText Pattern, FixedText Format, FixedText MemoryMessage = NO_ENOUGH_MEMORY,
          EntryText *Text = nullptr, int Limit = LIST_BOUND>
int show_list(CliContext &cli, const char *, CliCommand *) {
    static_assert(Pattern.converts("d") || Pattern.converts("dd"));
    static_assert(Format.converts("ds"));
    const NumberedList list = Pattern.converts("dd")
                                  ? NumberedList(Pattern.text, interface_number(cli))
                                  : NumberedList(Pattern.text);
    return show_entries(list, Limit, Format.text, MemoryMessage.text, Text);
}
