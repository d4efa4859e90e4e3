#include "session/journal.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace session {

std::vector<std::string> Journal::new_lines() {
    std::ifstream file(path_, std::ios::binary);
    file.seekg(offset_);
    std::vector<std::string> lines;
    // A last line without its newline is still being written; it is left for the next call.
    for (std::string line; std::getline(file, line) && !file.eof();) {
        offset_ += static_cast<long>(line.size()) + 1;
        lines.push_back(line);
    }
    return lines;
}

bool is_console_action(std::string_view journal_line) {
    static constexpr std::array<std::string_view, 3> ACTIONS{"wrote ", "deleted ", "ran "};
    return std::any_of(ACTIONS.begin(), ACTIONS.end(), [journal_line](std::string_view action) {
        return journal_line.starts_with(action);
    });
}

} // namespace session
