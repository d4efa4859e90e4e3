#include "shell/script.h"

#include "config/apply.h"
#include "config/host_command.h"
#include "config/node_access.h"
#include "config/unique_fd.h"
#include "shell/builtins.h"
#include "shell/input.h"
#include "shell/line_runner.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <unistd.h>

namespace {

constexpr int LINE_FAILED = 1;
constexpr int NOT_READ = 2;

struct Options {
    char **texts = nullptr; // of -c
    int text_count = 0;
    const char *file = nullptr;
    bool keeps_going = false;
};

// Gathers the texts of -c at the start of argv. False unless the options are valid and name exactly
// one source of lines.
bool read_options(int argc, char **argv, Options &options) {
    options.texts = argv;
    opterr = 0;
    int option = 0;
    while ((option = getopt(argc, argv, "+c:k")) != -1) {
        if (option == 'c')
            argv[options.text_count++] = optarg;
        else if (option == 'k')
            options.keeps_going = true;
        else
            return false;
    }
    if (optind < argc)
        options.file = argv[optind++];
    return optind == argc && (options.file == nullptr) != (options.text_count == 0);
}

// The bytes of all lines, from a descriptor or from texts.
class LineSource {
public:
    explicit LineSource(int fd) : fd_(fd) {}
    LineSource(char **texts, int count) : texts_(texts), count_(count) {}

    // The next byte, or -1 at the end.
    int next() { return fd_ < 0 ? next_of_texts() : next_read(); }

    // The errno of a failed read, or 0.
    [[nodiscard]] int error() const { return error_; }

private:
    int next_read() {
        unsigned char byte = 0;
        const int got = read_byte(fd_, byte);
        error_ = got < 0 ? errno : 0;
        return got == 1 ? byte : -1;
    }

    // The end of a text ends its last line.
    int next_of_texts() {
        while (count_ > 0) {
            if (const char byte = (*texts_)[at_]; byte != '\0') {
                ++at_;
                return static_cast<unsigned char>(byte);
            }
            const bool is_line_open = at_ == 0 || (*texts_)[at_ - 1] != '\n';
            ++texts_;
            --count_;
            at_ = 0;
            if (is_line_open)
                return '\n';
        }
        return -1;
    }

    int fd_ = -1;
    char **texts_ = nullptr;
    int count_ = 0;
    std::size_t at_ = 0;
    int error_ = 0;
};

class GrowingText {
public:
    // False when there is no memory; the text is unchanged then.
    bool append(std::string_view more) {
        if (length_ + more.size() > capacity_) {
            const std::size_t capacity = 2 * (length_ + more.size());
            std::unique_ptr<char[]> larger(new (std::nothrow) char[capacity]);
            if (larger == nullptr)
                return false;
            if (length_ > 0)
                std::memcpy(larger.get(), text_.get(), length_);
            text_ = std::move(larger);
            capacity_ = capacity;
        }
        std::memcpy(text_.get() + length_, more.data(), more.size());
        length_ += more.size();
        return true;
    }

    void print(std::FILE *out) const {
        if (length_ > 0)
            std::fwrite(text_.get(), 1, length_, out);
    }

private:
    std::unique_ptr<char[]> text_;
    std::size_t length_ = 0;
    std::size_t capacity_ = 0;
};

class Script {
public:
    Script(LineSource &source, LineRunner &lines, bool keeps_going)
        : source_(source), lines_(lines), keeps_going_(keeps_going) {}

    // Runs the lines up to the end of the run. False when one failed.
    bool run() {
        while (!is_over_ && read_line()) {
            if (!is_skipped() && !run_line())
                note_failure();
        }
        failures_.print(stderr);
        return !has_failed_;
    }

private:
    // False at the end, and when reading failed: a truncated line must not run.
    bool read_line() {
        ++number_;
        length_ = 0;
        bool is_whole = true;
        int byte = source_.next();
        const bool is_end = byte < 0;
        for (; byte >= 0 && byte != '\n'; byte = source_.next()) {
            is_whole = length_ < sizeof line_ - 1;
            if (is_whole)
                line_[length_++] = static_cast<char>(byte);
        }
        if (is_whole && length_ > 0 && line_[length_ - 1] == '\r')
            --length_;
        line_[length_] = '\0';
        return !is_end && source_.error() == 0;
    }

    [[nodiscard]] bool is_too_long() const { return length_ > LINE_LIMIT; }

    [[nodiscard]] bool is_skipped() const {
        const std::string_view line(line_, length_);
        const std::size_t first = line.find_first_not_of(" \t");
        return first == std::string_view::npos ? !is_too_long() : line[first] == '#';
    }

    // False when the line failed.
    bool run_line() {
        const bool was_printable = make_printable();
        if (is_too_long())
            return fail("Line too long.");
        if (!was_printable)
            return fail("Only printable ASCII characters can be typed.");
        std::memcpy(lines_.line(), line_, length_ + 1);
        lines_.split();
        is_over_ = lines_.names(exit_console);
        return is_over_ || dispatch_line();
    }

    bool dispatch_line() {
        const unsigned applies_before = applies_run;
        const unsigned failures_before = node_failures;
        const unsigned interrupts_before = command_lines_interrupted;
        const int result = lines_.dispatch();
        is_interrupted_ = command_lines_interrupted != interrupts_before;
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
            std::clearerr(stdout);
            return fail("Output could not be written.");
        }
        const bool is_done =
            result == CLI_DONE || result == CLI_LISTED || applies_run != applies_before;
        return is_done && node_failures == failures_before && !is_interrupted_;
    }

    // Names the line at once, or at the end with -k.
    void note_failure() {
        has_failed_ = true;
        is_over_ = !keeps_going_ || is_interrupted_;
        const bool is_cut = is_too_long();
        const std::size_t shown = is_cut ? 60 : length_;
        char message[sizeof line_ + 40];
        const int length =
            std::snprintf(message, sizeof message, "wap-sh: line %lu: %.*s%s\n", number_,
                          static_cast<int>(shown), line_, is_cut ? "..." : "");
        if (!keeps_going_ || !failures_.append({message, static_cast<std::size_t>(length)}))
            std::fputs(message, stderr);
    }

    // Replaces characters that are not printable ASCII, since the line is shown. False when there
    // were any.
    bool make_printable() {
        bool was_printable = true;
        for (std::size_t at = 0; at < length_; ++at) {
            if (std::isprint(static_cast<unsigned char>(line_[at])) != 0)
                continue;
            line_[at] = '?';
            was_printable = false;
        }
        return was_printable;
    }

    static bool fail(const char *message) {
        std::fprintf(stderr, "wap-sh: %s\n", message);
        return false;
    }

    LineSource &source_;
    LineRunner &lines_;
    char line_[LINE_BUFFER_SIZE]; // as read: handlers may change their words
    std::size_t length_ = 0;
    unsigned long number_ = 0; // of the line, from 1
    GrowingText failures_;
    bool keeps_going_;
    bool has_failed_ = false;
    bool is_interrupted_ = false;
    bool is_over_ = false;
};

int report_unreadable(const char *name, int error) {
    std::fprintf(stderr, "wap-sh: %s: %s\n", name, std::strerror(error));
    return NOT_READ;
}

int run_lines(LineSource &source, const char *name, const Options &options, CliCommand *root) {
    LineRunner lines(root);
    if (!lines.start())
        return START_UP_FAILURE;
    const bool is_done = Script(source, lines, options.keeps_going).run();
    if (source.error() != 0)
        return report_unreadable(name, source.error());
    return is_done ? 0 : LINE_FAILED;
}

} // namespace

bool is_script_name(const char *name) {
    if (name == nullptr)
        return false;
    if (const char *slash = std::strrchr(name, '/'))
        name = slash + 1;
    return std::strcmp(name + (*name == '-' ? 1 : 0), "wap-sh") == 0;
}

int run_script(int argc, char **argv, CliCommand *root) {
    Options options;
    if (!read_options(argc, argv, options)) {
        std::fputs("usage: wap-sh [[-k] (-c LINE [-c LINE]... | FILE | -)]\n", stderr);
        return NOT_READ;
    }
    if (options.file == nullptr) {
        LineSource texts(options.texts, options.text_count);
        return run_lines(texts, "", options, root);
    }
    if (std::strcmp(options.file, "-") == 0) {
        LineSource input(STDIN_FILENO);
        return run_lines(input, "standard input", options, root);
    }
    const UniqueFd file(open(options.file, O_RDONLY | O_CLOEXEC));
    if (!file)
        return report_unreadable(options.file, errno);
    LineSource input(file.get());
    return run_lines(input, options.file, options, root);
}
