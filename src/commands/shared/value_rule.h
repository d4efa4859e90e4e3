// Which words may be stored, and in which form.
#pragma once

#include "shell/command.h"

#include <cstdint>

enum class ValueKind {
    Text,   // limits are lengths in characters; stored as typed
    Number, // limits are values, read as arg_uint does; stored as "%d" prints it
};

struct ValueRule {
    ValueKind kind;
    std::uint32_t low;
    std::uint32_t high;
    const char *message;  // printed for a value outside low..high
    bool or_zero = false; // 0 is allowed, too
};

// A number as "%d" prints it.
class DecimalText {
public:
    // Formats `number`; the text lives until the next call.
    const char *of(int number);

private:
    char digits_[12];
};

// Takes the next word. Returns it as it is to be stored, a number in `digits`. Null after the
// rule's message; silently for a missing text; and after arg_uint's message for a missing or
// malformed number.
const char *take_value(CliContext &cli, const ValueRule &rule, DecimalText &digits);
