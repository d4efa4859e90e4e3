// Reading, writing and deleting nodes of the configuration database. Each operation opens its own
// connection. Failures are reported on standard error as the message, ": ", the system's error text
// and a newline.
#pragma once

#include "config/value_buffer.h"

#include <optional>

// The longest expanded path, in characters.
inline constexpr std::size_t NODE_PATH_LIMIT = 4095;

// How many failures were reported.
extern unsigned node_failures;

// Reads the node of a formatted path into `target` with one read; a longer value is cut at the
// target's limit. The text is always terminated, and empty when the read failed. Returns 0; or -1
// after "Cannot open database.", "Get ERROR!" or "Read database failed.".
[[gnu::format(printf, 2, 3)]] int cfg_get(ReadTarget target, const char *path, ...);

// The same for a plain path.
int cfg_get_plain(ReadTarget target, const char *path);

// The decimal value of a node, 0 when it is absent or no number; nothing, after cfg_get's message,
// when it could not be read. For commands whose writes depend on the value.
[[gnu::format(printf, 1, 2)]] std::optional<int> cfg_read_number(const char *path, ...);

// The same for displays: 0 also when the node could not be read.
[[gnu::format(printf, 1, 2)]] int cfg_number(const char *path, ...);

// Writes `value` to the node of a formatted path, and first marks the array's configuration as
// changed when the path belongs to a setting that the array keeps in step. Returns 0; or -1 after
// "Cannot open database." or "Set ERROR!".
[[gnu::format(printf, 2, 3)]] int cfg_set(const char *value, const char *path, ...);

// The same for a plain path.
int cfg_set_plain(const char *value, const char *path);

// The same as cfg_set with a number as its decimal text.
[[gnu::format(printf, 2, 3)]] int cfg_set_number(long long value, const char *path, ...);

// Deletes the node of a plain path. Returns 0; or -1 after "Cannot open database." or
// "Del ERROR!".
int cfg_del(const char *path);
