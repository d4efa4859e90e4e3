// Lists of the database: entries numbered from 1, up to the first empty one.
#pragma once

#include "config/node_access.h"

#include <array>
#include <concepts>
#include <optional>

// The path of a list's entry with its NUL, far above the longest.
using ListPath = std::array<char, 128>;

// The nodes that hold one column of a list.
class NumberedList {
public:
    // `pattern` is a path with "%d" for an entry's number, behind one for the interface's number
    // when there is an interface: "/wlan/inf:%d/acl/mac:%d".
    explicit constexpr NumberedList(const char *pattern) : pattern_(pattern) {}
    constexpr NumberedList(const char *pattern, int interface)
        : pattern_(pattern), interface_(interface) {}

    // The same with "%s" for the column's name in front: "/sys/snmpd/%s:%d".
    constexpr NumberedList(const char *pattern, const char *column)
        : pattern_(pattern), column_(column) {}

    // The path of entry `index`.
    [[nodiscard]] ListPath path(int index) const;

    // Reads entry `index`, as cfg_get does. An entry that could not be read is neither free nor
    // another's: a command that would write by it must refuse.
    [[nodiscard]] int read(ReadTarget value, int index) const;

    // Their results need not be looked at: what failed has been reported.
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

// What a walk along a list met first.
enum class SearchResult {
    Match,      // an entry that equals the text
    Empty,      // an empty entry
    Unreadable, // an entry that could not be read, which was reported: refuse silently
    Full,       // none of these among the entries that the list may have
};

// Where a walk ended. The number of an entry comes only with what the entry is.
class ListPlace {
public:
    constexpr ListPlace(SearchResult result, int index) : result_(result), index_(index) {}

    [[nodiscard]] SearchResult result() const { return result_; }

    // The entry that equals the text, or the empty one; nothing when the walk ended otherwise.
    [[nodiscard]] std::optional<int> match() const { return index_at(SearchResult::Match); }
    [[nodiscard]] std::optional<int> vacancy() const { return index_at(SearchResult::Empty); }

private:
    [[nodiscard]] std::optional<int> index_at(SearchResult result) const {
        return result_ == result ? std::optional(index_) : std::nullopt;
    }

    SearchResult result_;
    int index_;
};

// Walks entries first..capacity up to the one that equals `text` exactly or the first empty one.
// `value` is where the entries are read.
ListPlace find_in_list(const NumberedList &list, ReadTarget value, const char *text, int capacity,
                       int first = 1);

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

// For lists that end at their first empty entry only. Far above what any of them holds: a
// database that never answers with an empty one must not hold the console.
inline constexpr int LIST_BOUND = 4096;
