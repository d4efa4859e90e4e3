#include "node_tree.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>
#include <vector>

namespace {

constexpr std::string_view DENSE_TABLES = "sys/snmpd/";

// The first radio's nodes, and their older name.
constexpr std::string_view FIRST_RADIO = "wlan/inf:1/";
constexpr std::string_view OLD_FIRST_RADIO = "wireless/";

// The first byte after '/': everything below "a" sorts from "a/" up to, not including, "a0".
constexpr char AFTER_SLASH = '/' + 1;

// The instance number of "list:N" segments: plain decimal, as the console counts them.
std::optional<unsigned> instance_number(std::string_view text) {
    unsigned number = 0;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || text.front() == '0')
        return std::nullopt;
    return number;
}

} // namespace

std::string NodeTree::canonical(std::string_view path) {
    std::string result;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (end > 0) {
            if (!result.empty())
                result += '/';
            result += path.substr(0, end);
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    if (result.starts_with(OLD_FIRST_RADIO))
        result.replace(0, OLD_FIRST_RADIO.size(), FIRST_RADIO);
    return result;
}

bool NodeTree::is_runtime(std::string_view path) {
    const std::string_view top = path.substr(0, path.find('/'));
    // "rumtime" is how the rekeying service and the console spell one of its nodes.
    return top == "runtime" || top == "rumtime";
}

std::string NodeTree::get(std::string_view path) const {
    const std::string key = canonical(path);
    if (key.ends_with('#'))
        return std::to_string(count_instances(std::string_view(key).substr(0, key.size() - 1)));
    const auto node = nodes_.find(key);
    return node == nodes_.end() ? std::string() : node->second;
}

std::size_t NodeTree::count_instances(std::string_view list) const {
    const std::string prefix = std::string(list) + ':';
    std::set<std::string_view> instances;
    for (auto node = nodes_.lower_bound(prefix);
         node != nodes_.end() && node->first.starts_with(prefix); ++node) {
        const std::string_view path = node->first;
        instances.insert(path.substr(0, path.find('/', prefix.size())));
    }
    return instances.size();
}

bool NodeTree::set(std::string_view path, std::string_view value) {
    std::string key = canonical(path);
    if (key.empty() || std::ranges::count(key, '/') >= MAX_DEPTH)
        return false;
    nodes_.insert_or_assign(std::move(key), std::string(value));
    return true;
}

bool NodeTree::remove(std::string_view path) {
    const std::string key = canonical(path);
    if (key.empty())
        return false;
    remove_subtree(key);
    const std::size_t colon = key.rfind(':');
    if (key.starts_with(DENSE_TABLES) && colon != std::string::npos) {
        const std::string_view text = key;
        if (const auto number = instance_number(text.substr(colon + 1)))
            close_gap(text.substr(0, colon + 1), *number);
    }
    return true;
}

void NodeTree::remove_subtree(std::string_view path) {
    if (const auto node = nodes_.find(path); node != nodes_.end())
        nodes_.erase(node);
    const std::string below(path);
    nodes_.erase(nodes_.lower_bound(below + '/'), nodes_.lower_bound(below + AFTER_SLASH));
}

// Also when the removed row had no node in this column: its columns must stay in step.
void NodeTree::close_gap(std::string_view list, unsigned gone) {
    std::vector<Nodes::node_type> moved;
    for (auto next = nodes_.lower_bound(list);
         next != nodes_.end() && next->first.starts_with(list);) {
        const auto node = next++;
        const std::string_view rest = std::string_view(node->first).substr(list.size());
        const std::string_view text = rest.substr(0, rest.find('/'));
        const auto number = instance_number(text);
        if (!number || *number <= gone)
            continue;
        std::string path = std::string(list) + std::to_string(*number - 1);
        path += rest.substr(text.size());
        moved.push_back(nodes_.extract(node));
        moved.back().key() = std::move(path);
    }
    for (auto &node : moved)
        nodes_.insert(std::move(node));
}

void NodeTree::replace_by(NodeTree &&other) {
    const auto runtime = [](const auto &node) { return is_runtime(node.first); };
    const auto runtime_count = std::ranges::count_if(other.nodes_, runtime);
    const bool has_runtime = runtime_count > 0;
    const bool has_settings = static_cast<std::size_t>(runtime_count) < other.nodes_.size();
    std::erase_if(nodes_,
                  [&](const auto &node) { return runtime(node) ? has_runtime : has_settings; });
    nodes_.merge(other.nodes_);
}
