// The configuration: text nodes addressed by paths such as "/wlan/inf:1/ssid".
//
// A path is a list of segments between slashes; leading, trailing and doubled slashes are
// ignored, so "/a/b", "a/b" and "/a//b/" name one node. A list instance is a segment of its own,
// "index:2", and differs from "index:02". Paths below "/wireless/" are an older name of those below
// "/wlan/inf:1/". Writing a node creates it; a node may hold a text and have nodes below it.
#pragma once

#include <map>
#include <string>
#include <string_view>

class NodeTree {
public:
    // Canonical path (segments joined by single slashes) to text, in byte order of the paths.
    using Nodes = std::map<std::string, std::string, std::less<>>;

    // The deepest path that set takes, in segments.
    static constexpr int MAX_DEPTH = 64;

    // The text of the node, "" when there is none. "list#" gives the number of instances "list:N".
    [[nodiscard]] std::string get(std::string_view path) const;

    // Writes a node, making it when there is none. False, and nothing written, for a path without
    // a segment or deeper than MAX_DEPTH.
    bool set(std::string_view path, std::string_view value);

    // Removes a node and everything below it, if there is one. In the tables
    // below /sys/snmpd the later instances of the same column move down by one; elsewhere a hole
    // stays. False for a path without a segment.
    bool remove(std::string_view path);

    // Takes over all settings if `other` holds settings, and all run-time values if it holds
    // run-time values.
    void replace_by(NodeTree &&other);

    [[nodiscard]] const Nodes &nodes() const { return nodes_; }

    // The path as `nodes` names it.
    [[nodiscard]] static std::string canonical(std::string_view path);

    // Run-time values describe the running device and are never saved with the settings.
    // `path` is canonical.
    [[nodiscard]] static bool is_runtime(std::string_view path);

private:
    [[nodiscard]] std::size_t count_instances(std::string_view list) const;
    void remove_subtree(std::string_view path);
    void close_gap(std::string_view list, unsigned gone);

    Nodes nodes_;
};
