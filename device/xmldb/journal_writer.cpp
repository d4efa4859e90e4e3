#include "journal_writer.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr mode_t FILE_MODE = 0644;

void append_escaped(std::string &line, char c) {
    static constexpr char DIGITS[] = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(c);
    switch (c) {
    case '\n':
        line += "\\n";
        break;
    case '\r':
        line += "\\r";
        break;
    case '\t':
        line += "\\t";
        break;
    default:
        if (byte >= ' ' && byte != 0x7f) {
            line += c;
        } else {
            line += "\\x";
            line += DIGITS[byte >> 4];
            line += DIGITS[byte & 0xf];
        }
    }
}

} // namespace

std::string journal_line(std::string_view what, std::string_view text) {
    std::string line(what);
    line += ' ';
    for (const char c : text)
        append_escaped(line, c);
    line += '\n';
    return line;
}

JournalWriter::JournalWriter(const char *file)
    : fd_(open(file, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, FILE_MODE)) {
    if (!fd_)
        std::perror(file);
}

void JournalWriter::record(std::string_view what, std::string_view text) const {
    const std::string line = journal_line(what, text);
    if (fd_ && write(fd_.get(), line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        std::perror("journal");
}
