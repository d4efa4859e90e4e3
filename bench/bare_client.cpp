// The database requests of a number of gets or sets and nothing else, to measure the console
// against.
//
// usage: bare_client get|set COUNT once|twice
//
// Header and text of a request leave in one system call, or in two.
#include "config/sync_items.h"
#include "config/xmldb_client.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>

namespace {

bool in_two = false;

bool send_request(const UniqueFd &connection, XmldbAction action, const char *text) {
    const std::size_t length = std::strlen(text) + 1;
    if (!in_two)
        return xmldb_request(connection, action, 0, text, length) == 0;
    const XmldbRequestHeader header{
        .action = action, .length = static_cast<std::uint16_t>(length), .flags = 0, .reserved = {}};
    return send(connection.get(), &header, sizeof header, MSG_NOSIGNAL) > 0 &&
           send(connection.get(), text, length, MSG_NOSIGNAL) > 0;
}

bool get(const char *path) {
    char value[4096];
    const UniqueFd connection = xmldb_open(nullptr);
    return connection && send_request(connection, XMLDB_GET, path) &&
           read(connection.get(), value, sizeof value) > 0;
}

// A set looks at every synchronisation flag first.
bool set(const char *path, const char *value) {
    for (const SyncItem &item : SYNC_ITEMS) {
        if (!get(item.node))
            return false;
    }
    char text[1024];
    std::snprintf(text, sizeof text, "%s %s", path, value);
    XmldbStatusReply reply{};
    const UniqueFd connection = xmldb_open(nullptr);
    return connection && send_request(connection, XMLDB_SET, text) &&
           recv(connection.get(), &reply, sizeof reply, MSG_WAITALL) == sizeof reply &&
           reply.result != -1;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 4)
        return 2;
    const bool setting = std::strcmp(argv[1], "set") == 0;
    in_two = std::strcmp(argv[3], "twice") == 0;
    for (int left = std::atoi(argv[2]); left > 0; --left) {
        if (!(setting ? set("/wlan/inf:1/dtim", "3") : get("/wlan/inf:1/dtim")))
            return 1;
    }
    return 0;
}
