// Indices from 1 that a line names, such as a slot's or a key's, and their refusals.
#pragma once

#include "shell/context.h"

// What is printed for words that name no index; `error_line` follows each of the others.
struct IndexRefusal {
    const char *wrong_count = "";
    const char *out_of_range = "";
    const char *error_line = "";
    const char *not_a_number = ""; // after arg_uint's message
};

// An index and its word, which goes into node paths as typed: 02 is the node index:02. Deliberate.
struct LineIndex {
    const char *word = nullptr;
    int number = 0; // 0 for none

    explicit operator bool() const { return number != 0; }
};

// Takes the next word as an index of 1..last by its decimal value, when `words` words are left.
// None after the refusal.
LineIndex take_index(CliContext &cli, int words, int last, const IndexRefusal &refusal);

// The same with the word read by arg_uint. Returns 1..last; or 0 after the refusal.
int take_index_number(CliContext &cli, int words, int last, const IndexRefusal &refusal);
