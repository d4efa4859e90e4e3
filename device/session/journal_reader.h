// The stand-in device's journal: a file that grows by whole lines.
#pragma once

#include "config/unique_fd.h"

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace session {

// Programs of the device may put anything in the journal's place: only a regular file is read,
// without following a link or waiting.
class JournalReader {
public:
    // What the file at `path` holds at this moment is not reported.
    explicit JournalReader(std::string path);

    // The lines, without their newlines, that were written since the last call or the construction.
    // A file in place of the old one, or one made shorter, is read from its beginning; one that is
    // not there, or that is no regular file, has no lines.
    std::vector<std::string> new_lines();

private:
    [[nodiscard]] UniqueFd open_file() const;

    std::string path_;
    UniqueFd file_; // kept open, so that no other file gets its number
    off_t offset_ = 0;
};

// Whether a line says what the console did to the device ("wrote ...", "deleted ...", "ran ..."),
// not what a tool of the device did then ("did ...").
bool is_console_action(std::string_view journal_line);

} // namespace session
