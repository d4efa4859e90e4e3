#include "recording_backend.h"

#include "config/host_command.h"
#include "config/node_access.h"

#include <cstdarg>
#include <cstdio>

std::vector<std::string> recorded_effects;

namespace {

std::string expand(const char *format, std::va_list values) {
    char text[NODE_PATH_LIMIT + 1];
    std::vsnprintf(text, sizeof text, format, values);
    return text;
}

int record_write(const std::string &path, const std::string &value) {
    recorded_effects.push_back("writes `" + path + "` = `" + value + "`");
    return 0;
}

} // namespace

int cfg_get_plain(ReadTarget target, const char *) {
    target.data[0] = '\0';
    return 0;
}

int cfg_get(ReadTarget target, const char *path, ...) {
    return cfg_get_plain(target, path);
}

std::optional<int> cfg_read_number(const char *, ...) {
    return 0;
}

int cfg_number(const char *, ...) {
    return 0;
}

int cfg_set_plain(const char *value, const char *path) {
    return record_write(path, value);
}

int cfg_set(const char *value, const char *path, ...) {
    std::va_list values;
    va_start(values, path);
    const std::string expanded = expand(path, values);
    va_end(values);
    return record_write(expanded, value);
}

int cfg_set_number(long long value, const char *path, ...) {
    std::va_list values;
    va_start(values, path);
    const std::string expanded = expand(path, values);
    va_end(values);
    return record_write(expanded, std::to_string(value));
}

int cfg_del(const char *path) {
    recorded_effects.push_back("deletes `" + std::string(path) + "`");
    return 0;
}

int run_command_line(const CommandLine &line) {
    recorded_effects.push_back("runs `" + std::string(line.text()) + "`");
    return 0;
}

int capture_command_line(ReadTarget target, const CommandLine &line) {
    target.data[0] = '\0';
    return run_command_line(line);
}

void save_configuration() {
    run_command("/etc/scripts/misc/profile.sh put");
}
