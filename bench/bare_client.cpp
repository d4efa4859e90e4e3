// The database requests of a number of gets or sets with nothing around them: what the console is
// measured against.
//
// usage: bare_client get|set COUNT
#include "config/sync_items.h"
#include "config/xmldb_client.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

bool get(const char *path) {
    char value[4096];
    const UniqueFd connection = xmldb_open(nullptr);
    return connection && xmldb_get(connection, 0, path, nullptr) == 0 &&
           read(connection.get(), value, sizeof value) > 0;
}

// A set looks at every synchronisation flag first.
bool set(const char *path, const char *value) {
    for (const SyncItem &item : SYNC_ITEMS) {
        if (!get(item.node))
            return false;
    }
    const UniqueFd connection = xmldb_open(nullptr);
    return connection && xmldb_set(connection, 0, path, value) != -1;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 3)
        return 2;
    const bool setting = std::strcmp(argv[1], "set") == 0;
    for (int left = std::atoi(argv[2]); left > 0; --left) {
        if (!(setting ? set("/wlan/inf:1/dtim", "3") : get("/wlan/inf:1/dtim")))
            return 1;
    }
    return 0;
}
