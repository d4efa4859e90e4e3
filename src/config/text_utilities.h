// Small text operations that handlers share.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>

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

// Overwrites trailing blanks and tabs with NUL.
void cut_trailing_blanks(char *text);

// Room for seven day names and their commas.
inline constexpr std::size_t WEEKDAY_RANGE_SIZE = 32;

// Writes the day names from the first day to the second, both taken modulo 7 with 0 = Sunday, as
// "Sun,Mon,Tue"; wraps past Saturday; one name for equal days.
void weekday_range(int first_day, int last_day, char (&names)[WEEKDAY_RANGE_SIZE]);

// Reads one line of any length, dropping carriage returns; the newline is kept or, if asked,
// dropped. Null at the end of input with nothing read, and when memory runs out.
std::unique_ptr<char[]> read_line(std::FILE *stream, bool drop_newline);

// A growable array of pointers to heap texts.
class PointerArray {
public:
    using Entry = std::unique_ptr<char[]>;

    // `growth_step`: entries added whenever the array is too short; 0 means 16.
    explicit PointerArray(std::size_t growth_step = 0);
    PointerArray(const PointerArray &) = delete;
    PointerArray &operator=(const PointerArray &) = delete;
    ~PointerArray() = default;

    // Puts `entry` at `index`, growing as needed. The entry that was there is released, or, when
    // `keep_old`, left to whoever else owns it. False, with the array unchanged and the new entry
    // released, when memory runs out.
    bool set(std::size_t index, Entry entry, bool keep_old = false);

    // The entry at `index`; null beyond the end.
    [[nodiscard]] char *get(std::size_t index) const;

    // Lets go of all entries without releasing them, for when others own them.
    void forget_entries();

private:
    bool grow_to(std::size_t index);

    std::unique_ptr<Entry[]> entries_;
    std::size_t size_ = 0;
    std::size_t growth_step_;
};
