#include "commands/shared/numbered_list.h"

#include <cstdio>
#include <cstring>

// The patterns are this program's own.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

ListPath NumberedList::path(int index) const {
    ListPath path{};
    if (column_ != nullptr)
        std::snprintf(path.data(), path.size(), pattern_, column_, index);
    else if (interface_ == NO_INTERFACE)
        std::snprintf(path.data(), path.size(), pattern_, index);
    else
        std::snprintf(path.data(), path.size(), pattern_, interface_, index);
    return path;
}

int NumberedList::read(ReadTarget value, int index) const {
    return cfg_get_plain(value, path(index).data());
}

int NumberedList::write(int index, const char *text) const {
    return cfg_set_plain(text, path(index).data());
}

int NumberedList::remove(int index) const {
    return cfg_del(path(index).data());
}

ListPlace find_in_list(const NumberedList &list, ReadTarget value, const char *text, int capacity) {
    for (int index = 1; index <= capacity; ++index) {
        if (list.read(value, index) != 0)
            return {SearchResult::Unreadable};
        if (value.data[0] == '\0')
            return {.result = SearchResult::Empty, .vacancy = index};
        if (std::strcmp(value.data, text) == 0)
            return {.result = SearchResult::Match, .match = index};
    }
    return {SearchResult::Full};
}
