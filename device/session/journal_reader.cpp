#include "session/journal_reader.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/stat.h>

namespace session {

namespace {

struct stat status_of(const UniqueFd &file) {
    struct stat status {};
    if (file)
        fstat(file.get(), &status);
    return status;
}

bool is_same_file(const struct stat &one, const struct stat &other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

} // namespace

JournalReader::JournalReader(std::string path)
    : path_(std::move(path)), file_(open_file()), offset_(status_of(file_).st_size) {}

UniqueFd JournalReader::open_file() const {
    UniqueFd file(open(path_.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    return S_ISREG(status_of(file).st_mode) ? std::move(file) : UniqueFd();
}

std::vector<std::string> JournalReader::new_lines() {
    UniqueFd file = open_file();
    const struct stat status = status_of(file);
    if (!is_same_file(status, status_of(file_)) || status.st_size < offset_)
        offset_ = 0;
    file_ = std::move(file);

    std::string text;
    std::array<char, 4096> bytes; // NOLINT(*-member-init): pread fills it
    ssize_t count = 0;
    while ((count = pread(file_.get(), bytes.data(), bytes.size(),
                          offset_ + static_cast<off_t>(text.size()))) > 0)
        text.append(bytes.data(), static_cast<std::size_t>(count));

    std::vector<std::string> lines;
    // A last line without its newline is still being written; it is left for the next call.
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1)
        lines.push_back(text.substr(begin, end - begin));
    offset_ += static_cast<off_t>(begin);
    return lines;
}

bool is_console_action(std::string_view journal_line) {
    static constexpr std::array<std::string_view, 3> ACTIONS{"wrote ", "deleted ", "ran "};
    return std::any_of(ACTIONS.begin(), ACTIONS.end(), [journal_line](std::string_view action) {
        return journal_line.starts_with(action);
    });
}

} // namespace session
