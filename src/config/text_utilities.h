// Small text operations that handlers share.
#pragma once

// Sends what was printed so far on its way, before a message on standard error or a child's own
// output. Leaves errno as it was.
void flush_output();

// The plain decimal conversion: leading white space, a sign, digits; what follows is ignored.
// No digits give 0; values saturate at the limits of int.
int decimal_value(const char *text);

// True when the conversions of a printf format are these, in this order: "ds" for "%d" and then
// "%s".
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
