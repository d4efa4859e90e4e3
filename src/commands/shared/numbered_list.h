// Lists of the database: entries numbered from 1, up to the first empty one.
#pragma once

#include "config/node_access.h"

#include <array>
#include <concepts>
#include <optional>

// The path of an entry with its NUL, with room to spare.
using ListPath = std::array<char, 128>;

// The nodes that hold one column of a list.
class NumberedList {
public:
    // `pattern` is a path with "%d" for an entry's number, after one for the interface's number
    // when there is an interface: "/wlan/inf:%d/acl/mac:%d".
    explicit constexpr NumberedList(const char *pattern) : pattern_(pattern) {}
    constexpr NumberedList(const char *pattern, int interface)
        : pattern_(pattern), interface_(interface) {}

    // The same with "%s" for the column's name first: "/sys/snmpd/%s:%d".
    constexpr NumberedList(const char *pattern, const char *column)
        : pattern_(pattern), column_(column) {}

    // The path of entry `index`.
    [[nodiscard]] ListPath path(int index) const;

    // Reads entry `index`, as cfg_get does. An entry that could not be read counts as neither free
    // nor used: a command whose writes depend on it must refuse.
    [[nodiscard]] int read(ReadTarget value, int index) const;

    // Their results may be ignored: failures have been reported.
    // NOLINTBEGIN(modernize-use-nodiscard)

    // Writes entry `index`, as cfg_set does.
    int write(int index, const char *text) const;

    // Deletes entry `index`, as cfg_del does.
    int remove(int index) const;

    // NOLINTEND(modernize-use-nodiscard)

private:
    static constexpr int NO_INTERFACE = 0;

    const char *pattern_;
    int interface_ = NO_INTERFACE;
    const char *column_ = nullptr;
};

// What a search found first.
enum class SearchResult {
    Match,      // an entry that equals the text
    Empty,      // an empty entry
    Unreadable, // an entry that could not be read, which was reported: refuse silently
    Full,       // none of these within the list's capacity
};

// Where a search ended: at the entry that equals the text, at the empty one, or at none.
struct ListPlace {
    SearchResult result;
    std::optional<int> match = std::nullopt;
    std::optional<int> vacancy = std::nullopt;
};

// Searches entries 1..capacity for the first that equals `text` or is empty. `value` is a buffer
// for the entries.
ListPlace find_in_list(const NumberedList &list, ReadTarget value, const char *text, int capacity);

// Reads entries 1..capacity into `value` up to the first that is empty or cannot be read, and calls
// `visit(index)` for each. Returns how many there were.
template <class Value, std::invocable<int> Visit>
int for_each_entry(const NumberedList &list, Value &value, int capacity, Visit visit) {
    for (int index = 1; index <= capacity; ++index) {
        if (list.read(value, index) != 0 || value.empty())
            return index - 1;
        visit(index);
    }
    return capacity;
}

// The capacity of lists that end only at their first empty entry: far above any real list, so that
// a database that never returns an empty entry cannot hang the console.
inline constexpr int LIST_BOUND = 4096;
