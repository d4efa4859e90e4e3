// The journal: what the console wrote, deleted and ran, in order, one line each.
#pragma once

#include "config/unique_fd.h"

#include <string_view>

// Where the stand-in device keeps its journal.
inline constexpr char JOURNAL_FILE[] = "/var/journal";

class JournalWriter {
public:
    // Appends to `file`, creating it if needed; others may append to it and empty it as well. That
    // it cannot be opened or written is only reported on standard error.
    explicit JournalWriter(const char *file);

    // Appends the entry "WHAT TEXT\n" in a single write. Control characters of the text are escaped
    // (\n, \t, \r or \xNN), so that an entry is one line.
    void record(std::string_view what, std::string_view text) const;

private:
    UniqueFd fd_;
};
