#include "config_file.h"

#include "config/unique_fd.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr char ROOT_ELEMENT[] = "config";
constexpr char ODD_SEGMENT[] = "node"; // with the segment in its attribute "name"
constexpr std::string_view SEPARATOR = " = ";
constexpr mode_t FILE_MODE = 0600; // it holds the administrator's password and every key

bool is_listed(const NodeTree::Nodes::value_type &node, Selection selection) {
    return !node.second.empty() &&
           (selection == Selection::ALL || !NodeTree::is_runtime(node.first));
}

// ---- text

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '\\')
            result += "\\\\";
        else if (c == '\n')
            result += "\\n";
        else if (c == '\r')
            result += "\\r";
        else
            result += c;
    }
    return result;
}

std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == '\\' && i + 1 < text.size();
        const char c = escape ? text[++i] : text[i];
        if (escape && c == 'n')
            result += '\n';
        else if (escape && c == 'r')
            result += '\r';
        else
            result += c;
    }
    return result;
}

// Adds a node of a document. False for one that no request could write: there, a path ends at a
// blank and the text at a NUL.
bool take_node(NodeTree &tree, const std::string &path, const std::string &text) {
    return path.find_first_of(std::string_view(" \0", 2)) == std::string::npos &&
           text.find('\0') == std::string::npos && tree.set(path, text);
}

bool parse_text(std::string_view document, NodeTree &tree) {
    while (!document.empty()) {
        const std::size_t end = std::min(document.find('\n'), document.size());
        const std::string_view line = document.substr(0, end);
        document.remove_prefix(std::min(end + 1, document.size()));
        if (line.empty() || line.front() == '#')
            continue;
        const std::size_t separator = line.find(SEPARATOR);
        if (line.front() != '/' || separator == std::string_view::npos ||
            !take_node(tree, unescaped(line.substr(0, separator)),
                       unescaped(line.substr(separator + SEPARATOR.size()))))
            return false;
    }
    return true;
}

// ---- XML

bool is_xml_name(std::string_view text) {
    const auto is_name_byte = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-' || c == '.';
    };
    return !text.empty() &&
           (std::isalpha(static_cast<unsigned char>(text.front())) || text.front() == '_') &&
           std::ranges::all_of(text, is_name_byte);
}

std::string segment_of(const pugi::xml_node &element) {
    const std::string tag = element.name();
    const pugi::xml_attribute name = element.attribute("name");
    if (tag == ODD_SEGMENT && name)
        return name.value();
    const pugi::xml_attribute id = element.attribute("id");
    return id ? tag + ':' + id.value() : tag;
}

pugi::xml_node append_segment(pugi::xml_node parent, const std::string &segment) {
    const std::size_t colon = std::min(segment.find(':'), segment.size());
    const std::string tag = segment.substr(0, colon);
    if (!is_xml_name(tag)) {
        pugi::xml_node element = parent.append_child(ODD_SEGMENT);
        element.append_attribute("name") = segment.c_str();
        return element;
    }
    pugi::xml_node element = parent.append_child(tag.c_str());
    if (colon < segment.size())
        element.append_attribute("id") = segment.substr(colon + 1).c_str();
    return element;
}

// The element of the path below `element`, which is made where it is missing.
pugi::xml_node element_at(pugi::xml_node element, std::string_view path) {
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        const std::string segment(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
        const pugi::xml_node known = element.find_child(
            [&](const pugi::xml_node &child) { return segment_of(child) == segment; });
        element = known ? known : append_segment(element, segment);
    }
    return element;
}

bool parse_elements(const pugi::xml_node &parent, const std::string &path, NodeTree &tree) {
    if (std::ranges::count(path, '/') > NodeTree::MAX_DEPTH)
        return false;
    for (const pugi::xml_node child : parent.children()) {
        if (child.type() != pugi::node_element)
            continue;
        const std::string child_path = path + '/' + segment_of(child);
        const pugi::xml_attribute value = child.attribute("value");
        if ((value && !take_node(tree, child_path, value.value())) ||
            !parse_elements(child, child_path, tree))
            return false;
    }
    return true;
}

bool parse_xml(std::string_view document, NodeTree &tree) {
    pugi::xml_document xml;
    return xml.load_buffer(document.data(), document.size(), pugi::parse_default,
                           pugi::encoding_utf8) &&
           parse_elements(xml.child(ROOT_ELEMENT), "", tree);
}

// ---- files

// A rename survives a loss of power once the directory is on the disk.
bool sync_directory_of(const std::string &file) {
    const std::string directory = std::filesystem::path(file).parent_path();
    const UniqueFd fd(
        open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // EINVAL: not on this file system.
    return fd && (fsync(fd.get()) == 0 || errno == EINVAL);
}

} // namespace

std::string tree_to_text(const NodeTree &tree, Selection selection) {
    std::string text;
    for (const auto &node : tree.nodes()) {
        if (is_listed(node, selection))
            text.append("/")
                .append(escaped(node.first))
                .append(SEPARATOR)
                .append(escaped(node.second))
                .append("\n");
    }
    return text;
}

std::string tree_to_xml(const NodeTree &tree, Selection selection) {
    pugi::xml_document xml;
    const pugi::xml_node root = xml.append_child(ROOT_ELEMENT);
    for (const auto &node : tree.nodes()) {
        if (is_listed(node, selection))
            element_at(root, node.first).append_attribute("value") = node.second.c_str();
    }
    std::ostringstream text;
    xml.save(text, "  ", pugi::format_default, pugi::encoding_utf8);
    return text.str();
}

std::optional<NodeTree> parse_tree(std::string_view document) {
    NodeTree tree;
    const bool parsed =
        document.starts_with('<') ? parse_xml(document, tree) : parse_text(document, tree);
    if (!parsed || tree.nodes().empty())
        return std::nullopt;
    return tree;
}

std::optional<NodeTree> load_tree_file(const std::string &file) {
    // Without O_NONBLOCK, opening a named pipe would block the daemon.
    const UniqueFd fd(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!fd || fstat(fd.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string document(static_cast<std::size_t>(status.st_size), '\0');
    const ssize_t length = read(fd.get(), document.data(), document.size());
    document.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return parse_tree(document);
}

bool replace_file(const std::string &file, std::string_view text) {
    const std::string fresh = file + ".new";
    unlink(fresh.c_str()); // left by an interrupted save
    const UniqueFd fd(open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, FILE_MODE));
    if (!fd)
        return false;
    const bool replaced =
        write(fd.get(), text.data(), text.size()) == static_cast<ssize_t>(text.size()) &&
        fsync(fd.get()) == 0 && rename(fresh.c_str(), file.c_str()) == 0;
    if (!replaced)
        unlink(fresh.c_str());
    return replaced && sync_directory_of(file);
}
