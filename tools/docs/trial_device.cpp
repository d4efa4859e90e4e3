#include "trial_device.h"

#include "commands/radio.h"
#include "config/apply.h"
#include "config/array_sync.h"
#include "config/host_command.h"
#include "config/xmldb_client.h"
#include "shell/dispatch.h"
#include "tables/root.h"
#include "xmldb/config_file.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

struct TrialDevice {
    std::string etc;
    NodeTree first_start; // what the database holds then
    NodeTree nodes;
    bool has_changed = true; // since the first start
    Answer answer;           // to the line that runs
};
TrialDevice device;

void record(const std::string &what, const std::string &subject) {
    device.answer.journal.push_back(what + " " + subject);
}

[[gnu::format(printf, 1, 0)]] std::string format_text(const char *format, std::va_list values) {
    char text[4096];
    std::vsnprintf(text, sizeof text, format, values);
    return text;
}

// An open file with this text.
int text_file(std::string_view text) {
    const int file = memfd_create("text", MFD_CLOEXEC);
    return file >= 0 && pwrite(file, text.data(), text.size(), 0) >= 0 ? file : -1;
}

void write_node(const std::string &path, const std::string &value) {
    set_trial_node(path, value);
    record("wrote", path + " = " + value);
}

// Puts what may be read of `text` into `target`.
void fill(ReadTarget target, std::string_view text) {
    target.data[text.copy(target.data, target.limit)] = '\0';
}

// The database's own tool prints and writes nodes; other tools are only recorded.
void run_tool(const std::string &line) {
    const std::size_t value_at = line.rfind(' ') + 1;
    const std::string last_word = line.substr(value_at);
    if (line.starts_with("rgdb -g ") || line.starts_with("rgdb -i -g "))
        std::printf("%s\n", device.nodes.get(last_word).c_str());
    else if (constexpr std::string_view SET = "rgdb -s "; line.starts_with(SET))
        write_node(line.substr(SET.size(), value_at - 1 - SET.size()), last_word);
}

// Standard output while it goes to a file in memory instead.
class CapturedOutput {
public:
    CapturedOutput() : file_(text_file("")), saved_(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        dup2(file_.get(), STDOUT_FILENO);
    }
    CapturedOutput(const CapturedOutput &) = delete;
    CapturedOutput &operator=(const CapturedOutput &) = delete;
    ~CapturedOutput() {
        std::fflush(stdout);
        dup2(saved_.get(), STDOUT_FILENO);
    }

    [[nodiscard]] std::string text() const {
        std::fflush(stdout);
        std::string all(static_cast<std::size_t>(lseek(file_.get(), 0, SEEK_END)), '\0');
        all.resize(static_cast<std::size_t>(
            std::max<ssize_t>(0, pread(file_.get(), all.data(), all.size(), 0))));
        return all;
    }

private:
    UniqueFd file_;
    UniqueFd saved_;
};

} // namespace

bool use_trial_settings(const std::string &etc) {
    device.etc = etc;
    for (const char *file : {"/factory.xml", "/runtime.xml"}) {
        auto tree = load_tree_file(etc + file);
        if (!tree)
            return false;
        device.first_start.replace_by(*std::move(tree));
    }
    return true;
}

void restart_trial_device() {
    if (device.has_changed)
        device.nodes = device.first_start;
    device.has_changed = false;
    pending_apply = 0;
    array_cfg_dirty = 0;
    operating_band = 0;
}

void set_trial_node(const std::string &path, const std::string &value) {
    device.nodes.set(path, value);
    device.has_changed = true;
}

Answer type_line(const std::string &line, bool sees_pending) {
    device.answer = {};
    pending_apply = sees_pending ? pending_apply : 0;
    debug_locked = 0;
    const auto cli = std::make_unique<CliContext>();
    std::string words = line;
    split_line(*cli, words.data());
    CapturedOutput output;
    const unsigned applies_before = applies_run;
    const int result = cli_dispatch(*cli, root_table());
    device.answer.result = applies_run == applies_before ? result : CLI_DONE; // as in a script
    device.answer.output = output.text();
    device.answer.pending = pending_apply;
    return device.answer;
}

std::vector<std::string> apply_commands(std::uint32_t bit) {
    restart_trial_device();
    device.answer = {};
    pending_apply = bit;
    apply_changes();
    auto &journal = device.answer.journal;
    journal.erase(journal.begin()); // saving
    return journal;
}

// The client of the database. A connection is an open file: the answer to a read.

const char *xmldb_default_socket = "";

UniqueFd xmldb_open(const char *) {
    return UniqueFd(memfd_create("connection", MFD_CLOEXEC));
}

int xmldb_get(const UniqueFd &connection, std::uint32_t, const char *path, std::FILE *) {
    const std::string text = device.nodes.get(path) + '\0';
    return pwrite(connection.get(), text.data(), text.size(), 0) < 0 ? -1 : 0;
}

int xmldb_set(const UniqueFd &, std::uint32_t, const char *path, const char *value) {
    write_node(path, value);
    for (const SyncItem &item : SYNC_ITEMS) {
        if (sync_item_covers(item, path))
            device.answer.array_items.insert(item.word);
    }
    return 0;
}

int xmldb_del(const UniqueFd &, std::uint32_t, const char *path) {
    device.nodes.remove(path);
    device.has_changed = true;
    record("deleted", path);
    return 0;
}

int xmldb_status_action(const UniqueFd &, std::uint16_t, std::uint32_t, const char *) {
    return 0;
}

// The host's shell.

unsigned command_lines_run = 0;
unsigned command_lines_interrupted = 0;

void make_output_blocking() {}

int run_command_line(const CommandLine &line) {
    record("ran", line.text());
    run_tool(line.text());
    return 0;
}

int capture_command_line(ReadTarget target, const CommandLine &line) {
    record("ran", line.text());
    fill(target, TOOL_ANSWER);
    return 0;
}

void save_configuration() {
    run_command("/etc/scripts/misc/profile.sh put");
}

// These take the place of the C library's, under its names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name,readability-identifier-naming)
extern "C" {

// Below /var are the files that a device starts with; others there, and in /tmp, were made by a
// tool or are written to. This tree's own files can be in either.
int open(const char *path, int flags, ...) {
    std::va_list values;
    va_start(values, flags);
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : mode_t{0};
    va_end(values);
    std::string file = path;
    if (!file.starts_with(device.etc) && (file.starts_with("/tmp/") || file.starts_with("/var/"))) {
        file = device.etc + "/default" + file;
        if (access(file.c_str(), R_OK) != 0)
            return text_file(TOOL_ANSWER);
    }
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, file.c_str(), flags, mode));
}

std::time_t time(std::time_t *result) noexcept {
    constexpr std::time_t NOW = 1'718'201'109; // 2024-06-12 14:05:09 UTC
    if (result != nullptr)
        *result = NOW;
    return NOW;
}

int clock_settime(clockid_t, const timespec *now) noexcept {
    char text[32];
    std::strftime(text, sizeof text, "%F %T", std::localtime(&now->tv_sec));
    record("set the clock to", text);
    return 0;
}

unsigned sleep(unsigned) {
    return 0;
}

[[gnu::format(printf, 2, 0)]] void vsyslog(int, const char *format, std::va_list values) {
    record("logged", format_text(format, values));
}

[[gnu::format(printf, 2, 3)]] void syslog(int priority, const char *format, ...) {
    std::va_list values;
    va_start(values, format);
    vsyslog(priority, format, values);
    va_end(values);
}

// What a checked build calls for the same.
[[gnu::format(printf, 3, 4)]] void __syslog_chk(int priority, int, const char *format, ...) {
    std::va_list values;
    va_start(values, format);
    vsyslog(priority, format, values);
    va_end(values);
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name,readability-identifier-naming)
