#include "config/node_access.h"

#include "config/array_sync.h"
#include "config/xmldb_client.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

unsigned node_failures = 0;

namespace {

struct NodePath {
    char text[NODE_PATH_LIMIT + 1];

    [[gnu::format(printf, 2, 0)]] NodePath(const char *format, std::va_list values) {
        std::vsnprintf(text, sizeof text, format, values);
    }
};

int fail(const char *message) {
    ++node_failures;
    flush_output();
    std::perror(message);
    return -1;
}

std::optional<int> read_number(const NodePath &path) {
    WAP_NOT_CLEARED UsualValue value;
    if (cfg_get_plain(value, path.text) != 0)
        return std::nullopt;
    return value.number();
}

} // namespace

int cfg_get_plain(ReadTarget target, const char *path) {
    target.data[0] = '\0';
    const UniqueFd connection = xmldb_open(nullptr);
    if (!connection)
        return fail("Cannot open database.");
    if (xmldb_get(connection, 0, path, nullptr) != 0)
        return fail("Get ERROR!");
    const ssize_t got = read(connection.get(), target.data, target.limit);
    if (got < 0)
        return fail("Read database failed.");
    target.data[got] = '\0';
    return 0;
}

int cfg_set_plain(const char *value, const char *path) {
    note_array_write(path);
    const UniqueFd connection = xmldb_open(nullptr);
    if (!connection)
        return fail("Cannot open database.");
    return xmldb_set(connection, 0, path, value) == -1 ? fail("Set ERROR!") : 0;
}

int cfg_get(ReadTarget target, const char *path, ...) {
    std::va_list values;
    va_start(values, path);
    WAP_NOT_CLEARED const NodePath expanded(path, values);
    va_end(values);
    return cfg_get_plain(target, expanded.text);
}

std::optional<int> cfg_read_number(const char *path, ...) {
    std::va_list values;
    va_start(values, path);
    WAP_NOT_CLEARED const NodePath expanded(path, values);
    va_end(values);
    return read_number(expanded);
}

int cfg_number(const char *path, ...) {
    std::va_list values;
    va_start(values, path);
    WAP_NOT_CLEARED const NodePath expanded(path, values);
    va_end(values);
    return read_number(expanded).value_or(0);
}

int cfg_set(const char *value, const char *path, ...) {
    std::va_list values;
    va_start(values, path);
    WAP_NOT_CLEARED const NodePath expanded(path, values);
    va_end(values);
    return cfg_set_plain(value, expanded.text);
}

int cfg_set_number(long long value, const char *path, ...) {
    std::va_list values;
    va_start(values, path);
    WAP_NOT_CLEARED const NodePath expanded(path, values);
    va_end(values);
    char text[24];
    std::snprintf(text, sizeof text, "%lld", value);
    return cfg_set_plain(text, expanded.text);
}

int cfg_del(const char *path) {
    const UniqueFd connection = xmldb_open(nullptr);
    if (!connection)
        return fail("Cannot open database.");
    return xmldb_del(connection, 0, path) == -1 ? fail("Del ERROR!") : 0;
}
