#include "journal_writer.h"

#include <cctype>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

constexpr mode_t JOURNAL_MODE = 0644;

std::string escaped(char c) {
    switch (c) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        break;
    }
    if (std::iscntrl(static_cast<unsigned char>(c)) == 0)
        return {c};
    char text[sizeof "\\x00"];
    std::snprintf(text, sizeof text, "\\x%02x", static_cast<unsigned>(c));
    return text;
}

} // namespace

JournalWriter::JournalWriter(const char *file)
    : fd_(open(file, O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_CLOEXEC, JOURNAL_MODE)) {
    if (!fd_)
        std::perror(file);
}

void JournalWriter::record(std::string_view what, std::string_view text) const {
    std::string line(what);
    line += ' ';
    for (const char c : text)
        line += escaped(c);
    line += '\n';
    if (fd_ && write(fd_.get(), line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        std::perror("journal");
}
