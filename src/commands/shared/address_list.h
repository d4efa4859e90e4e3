// Lists of addresses that the administrator fills one by one, and that go into effect when the
// radio restarts: access control, zone defence.
#pragma once

#include "commands/shared/numbered_list.h"

struct AddressList {
    NumberedList entries;
    int capacity;
    const char *title; // of the list, in the refusal of one address too many
    const char *kind;  // of its addresses, in the refusal of a duplicate
};

// `value` is where the entries are read. An entry that cannot be read is a silent refusal, -1 with
// nothing changed.

// Writes `address` to the first empty entry and sets APPLY_WLAN. Returns 0; or -1, with nothing
// written, after saying that the list is full or holds the address, as the same text, already.
int add_address(const AddressList &list, ReadTarget value, const char *address);

// Deletes the first entry that is the same text, which leaves a hole, and sets APPLY_WLAN.
// Returns 0; or -1 after saying that there is none before the first empty entry.
int delete_address(const AddressList &list, ReadTarget value, const char *address);
