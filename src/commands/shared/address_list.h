// Lists of addresses to which the administrator adds one at a time, and which take effect when the
// radio restarts: access control, zone defence.
#pragma once

#include "commands/shared/numbered_list.h"

struct AddressList {
    NumberedList entries;
    int capacity;
    const char *title; // of the list, in the refusal of one address too many
    const char *kind;  // of its addresses, in the refusal of a duplicate
};

// `value` is the buffer for the entries. When an entry cannot be read, both refuse silently: -1,
// with nothing changed.

// Writes `address` to the first empty entry and sets APPLY_WLAN. Returns 0; or -1, with nothing
// written, after reporting that the list is full or already holds the same text.
int add_address(const AddressList &list, ReadTarget value, const char *address);

// Deletes the first entry with the same text, which leaves a hole, and sets APPLY_WLAN. Returns 0;
// or -1 after the refusal when there is none before the first empty entry.
int delete_address(const AddressList &list, ReadTarget value, const char *address);
