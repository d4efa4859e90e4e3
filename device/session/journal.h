// The stand-in device's journal: a file that grows by whole lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace session {

class Journal {
public:
    explicit Journal(std::string path) : path_(std::move(path)) {}

    // The lines, without their newlines, that were written since the last call (at first: since
    // the file was made). A file that does not exist has no lines.
    std::vector<std::string> new_lines();

private:
    std::string path_;
    long offset_ = 0;
};

// Whether a line tells what the console did to the device ("wrote ...", "deleted ...", "ran ..."),
// and not what a tool of the device had to say about it ("did ...").
bool is_console_action(std::string_view journal_line);

} // namespace session
