// Client side of the configuration daemon's socket protocol. One request per connection, no
// retries, no time limit: a daemon that never answers blocks the caller.
#pragma once

#include "config/unique_fd.h"
#include "config/xmldb_protocol.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>

// The socket that xmldb_open uses when it is given none.
extern const char *xmldb_default_socket;

// Connects to the daemon at `socket_path`, null for the default; the descriptor is close-on-exec.
// On failure it is empty, and a line that begins with "Cound not" is printed on standard error.
UniqueFd xmldb_open(const char *socket_path);

// Closes a connection.
void xmldb_close(UniqueFd &connection);

// Sends a header and `length` bytes of payload. Returns 0, or -1 if they could not be sent.
int xmldb_request(const UniqueFd &connection, std::uint16_t action, std::uint32_t flags,
                  const char *payload, std::size_t length);

// Copies a text reply, up to its NUL or the end of the connection, to `stream`. Returns what the
// last read returned: below 1 when the reply ended without a NUL.
int xmldb_read_text(const UniqueFd &connection, std::FILE *stream);

// Requests a node's text and copies it to `stream`; with a null stream the caller reads the reply.
// Returns 0 or -1.
int xmldb_get(const UniqueFd &connection, std::uint32_t flags, const char *path, std::FILE *stream);

// Requests the node of a formatted path (cut at 511 characters) and reads the reply once, up to
// `size` bytes. Returns what that read returned, or -1 when the request could not be sent.
[[gnu::format(printf, 4, 5)]] int xmldb_get_format(const UniqueFd &connection, char *buffer,
                                                   std::size_t size, const char *path, ...);

// Writes a node; "path value" is cut at 1023 characters. Returns the daemon's result, -1 for
// failure.
int xmldb_set(const UniqueFd &connection, std::uint32_t flags, const char *path, const char *value);

// Deletes a node. Returns the daemon's result, -1 for failure.
int xmldb_del(const UniqueFd &connection, std::uint32_t flags, const char *path);

// Any request with a path, by the shape of its answer: a text (as for xmldb_get) or a status.
int xmldb_text_action(const UniqueFd &connection, std::uint16_t action, std::uint32_t flags,
                      const char *path, std::FILE *stream);
int xmldb_status_action(const UniqueFd &connection, std::uint16_t action, std::uint32_t flags,
                        const char *path);
