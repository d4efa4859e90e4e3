// Lists of addresses that the administrator edits one at a time, and that take effect when the
// radio restarts: access control, zone defence.
#pragma once

#include "commands/shared/numbered_list.h"

struct AddressList {
    NumberedList entries;
    int capacity;
    const char *title; // of the list, in the refusal of one address too many
    const char *kind;  // of its addresses, in the refusal of a duplicate
};

// `value` is a buffer for the entries. Results are those of handlers, see CliHandler.

// Writes `address` to the first empty entry and sets APPLY_WLAN. Refused when the list is full or
// holds the same text.
int add_address(const AddressList &list, ReadTarget value, const char *address);

// Deletes the first entry with the same text, which leaves a hole, and sets APPLY_WLAN. Refused
// when there is none before the first empty entry.
int delete_address(const AddressList &list, ReadTarget value, const char *address);
