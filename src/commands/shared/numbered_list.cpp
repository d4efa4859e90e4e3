#include "commands/shared/numbered_list.h"

#include <cstdio>
#include <cstring>

// The patterns are this program's own.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

const char *NumberedList::path(int index) const {
    // Far above the longest list path.
    static char path[256];
    if (column_ != nullptr)
        std::snprintf(path, sizeof path, pattern_, column_, index);
    else if (interface_ == NO_INTERFACE)
        std::snprintf(path, sizeof path, pattern_, index);
    else
        std::snprintf(path, sizeof path, pattern_, interface_, index);
    return path;
}

int NumberedList::read(ReadTarget value, int index) const {
    return cfg_get_plain(value, path(index));
}

int NumberedList::write(int index, const char *text) const {
    return cfg_set_plain(text, path(index));
}

int NumberedList::remove(int index) const {
    return cfg_del(path(index));
}

ListPlace find_in_list(const NumberedList &list, ReadTarget value, const char *text, int capacity,
                       int first) {
    for (int index = first; index <= capacity; ++index) {
        if (list.read(value, index) != 0)
            return {SearchResult::Unreadable, index};
        if (value.data[0] == '\0')
            return {SearchResult::Empty, index};
        if (std::strcmp(value.data, text) == 0)
            return {SearchResult::Match, index};
    }
    return {SearchResult::Full, capacity + 1};
}
