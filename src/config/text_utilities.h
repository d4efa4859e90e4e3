// Small text operations.
#pragma once

// Flushes standard output, before a message on standard error or a child's output. Leaves errno as
// it was.
void flush_output();

// The plain decimal conversion: white space, a sign, digits; the rest is ignored. 0 without digits;
// saturates at the limits of int.
int decimal_value(const char *text);

// True when the conversions of a printf format are exactly these: "ds" for "%d", then "%s".
constexpr bool converts(const char *format, const char *conversions) {
    for (; *format != '\0'; ++format) {
        if (*format != '%')
            continue;
        ++format;
        if (*conversions == '\0' || *format != *conversions)
            return false;
        ++conversions;
    }
    return *conversions == '\0';
}

// The first character that is neither blank nor tab; null stays null.
const char *skip_leading_blanks(const char *text);
