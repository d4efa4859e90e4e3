// The device's shared utilities: operations for its other programs, which no command here needs.
#pragma once

#include "config/xmldb_client.h"

#include <cstddef>
#include <cstdio>
#include <memory>

// Further requests to the configuration daemon, which defines their meaning.
enum XmldbUnnamedAction : std::uint16_t {
    XMLDB_STATUS_4 = 4,      // path; answered by a status
    XMLDB_STATUS_5 = 5,      // path; answered by a status
    XMLDB_TEXT_6 = 6,        // path; answered by a text
    XMLDB_TEXT_7 = 7,        // path; answered by a text
    XMLDB_STATUS_PAIR_8 = 8, // two texts; answered by a status
    XMLDB_TEXT_10 = 10,      // path; answered by a text
};

// Sends XMLDB_STATUS_PAIR_8 with "first second", cut at 255 characters. Returns the daemon's
// result, -1 for failure.
int xmldb_pair_action(const UniqueFd &connection, std::uint32_t flags, const char *first,
                      const char *second);

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
