// An index from 1 that a line names, such as a slot's or a key's, and how others are refused.
#pragma once

#include "shell/context.h"

// What is printed for words that name no index; each text with the error line behind it.
struct IndexRefusal {
    const char *wrong_count = "";
    const char *out_of_range = "";
    const char *error_line = "";
    const char *not_a_number = ""; // behind arg_uint's message
};

// An index as the line names it. Its word goes into node paths as typed, so that 02 is the node
// index:02. Deliberate.
struct LineIndex {
    const char *word = nullptr;
    int number = 0; // 0 for none

    explicit operator bool() const { return number != 0; }
};

// Takes the next of `words` unread words, by its decimal value, as an index of 1..last. None after
// the refusal.
LineIndex take_index(CliContext &cli, int words, int last, const IndexRefusal &refusal);

// The same as arg_uint reads the word. Returns 1..last; or 0 after the refusal.
int take_index_number(CliContext &cli, int words, int last, const IndexRefusal &refusal);
