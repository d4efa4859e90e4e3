// What a word must be to be stored, and the form in which it is.
#pragma once

#include "shell/command.h"

#include <cstdint>

enum class ValueKind {
    Text,   // limits are lengths in characters; stored as typed
    Number, // limits are values, read as arg_uint does; stored as "%d" prints it
};

// What a word must be to be stored.
struct ValueRule {
    ValueKind kind;
    std::uint32_t low;
    std::uint32_t high;
    const char *message;  // printed for a value outside low..high
    bool or_zero = false; // 0 is good besides
};

// A number as "%d" prints it.
class DecimalText {
public:
    // Formats `number`; the text lives until the next call.
    const char *of(int number);

private:
    char digits_[12];
};

// Takes the next word. Returns it in the form that its node holds, a number in `digits`. Null when
// there is none, when it is no number (both after arg_uint's message where a number is wanted) or
// breaks the rule (after the rule's message).
const char *take_value(CliContext &cli, const ValueRule &rule, DecimalText &digits);
