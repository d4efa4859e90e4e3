#include "config/array_sync.h"

#include "config/node_access.h"

#include <algorithm>
#include <string_view>

std::uint32_t array_cfg_dirty = 0;

namespace {

using enum SyncRuleKind;

constexpr std::string_view MULTI_SSID_NODES = "/wlan/inf:1/multi/";

bool rule_holds(const SyncRule &rule, std::string_view path) {
    const std::string_view text = rule.text;
    switch (rule.kind) {
    case Equal:
        return path == text;
    case Prefix:
        return path.starts_with(text);
    case Contains:
        return path.find(text) != std::string_view::npos;
    case Multi:
        return path.starts_with(MULTI_SSID_NODES) && path.find(text) != std::string_view::npos;
    }
    return false;
}

} // namespace

bool sync_item_covers(const SyncItem &item, const char *path) {
    return std::any_of(std::begin(SYNC_RULES), std::end(SYNC_RULES), [&](const SyncRule &rule) {
        return &SYNC_ITEMS[rule.item] == &item && rule_holds(rule, path);
    });
}

void note_array_write(const char *path) {
    for (const SyncItem &item : SYNC_ITEMS) {
        ShortValue<128> flag;
        cfg_get_plain(flag, item.node);
        if (flag.number() == 1 && sync_item_covers(item, path))
            array_cfg_dirty = 1;
    }
}
