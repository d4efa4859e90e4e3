#include "request_handler.h"

#include "config_file.h"

#include <charconv>
#include <cstring>
#include <utility>

namespace {

XmldbRequestHeader header_of(std::string_view bytes) {
    XmldbRequestHeader header{};
    std::memcpy(&header, bytes.data(), sizeof header);
    return header;
}

std::string text_reply(std::string text) {
    text += '\0';
    return text;
}

std::string status_reply(bool done) {
    XmldbStatusReply reply{};
    reply.result = done ? 0 : -1;
    std::string bytes(sizeof reply, '\0');
    std::memcpy(bytes.data(), &reply, sizeof reply);
    return bytes;
}

constexpr std::string_view UPTIME = "runtime/sys/uptime";

bool names_uptime(std::string_view path) {
    return NodeTree::canonical(path) == UPTIME;
}

} // namespace

std::size_t RequestHandler::request_size(std::string_view bytes) {
    if (bytes.size() < sizeof(XmldbRequestHeader))
        return 0;
    const std::size_t size = sizeof(XmldbRequestHeader) + header_of(bytes).length;
    return size <= bytes.size() ? size : 0;
}

std::string RequestHandler::answer(std::string_view request) {
    const XmldbRequestHeader header = header_of(request);
    std::string_view text = request.substr(sizeof header, header.length);
    text = text.substr(0, text.find('\0'));
    const bool journaled = (header.flags & XMLDB_UNJOURNALED) == 0;
    switch (header.action) {
    case XMLDB_GET:
        return text_reply(get(text));
    case XMLDB_SET:
        return status_reply(set(text, journaled));
    case XMLDB_DEL:
        return status_reply(remove(text, journaled));
    case 6: // text actions that this daemon does not implement
    case 7:
    case 10:
        return text_reply("");
    case XMLDB_STOP:
        stopping_ = true;
        return status_reply(true);
    case XMLDB_LOAD:
        return status_reply(load(std::string(text)));
    case XMLDB_SAVE:
        return status_reply(
            replace_file(std::string(text), tree_to_xml(tree_, Selection::SETTINGS)));
    case XMLDB_DUMP:
        return text_reply(
            tree_to_text(tree_, text == "settings" ? Selection::SETTINGS : Selection::ALL));
    default:
        return status_reply(false);
    }
}

std::chrono::seconds RequestHandler::steady_seconds() {
    return std::chrono::duration_cast<std::chrono::seconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

std::string RequestHandler::get(std::string_view path) const {
    std::string text = tree_.get(path);
    long long seconds = 0;
    const char *end = text.data() + text.size();
    if (!names_uptime(path) || std::from_chars(text.data(), end, seconds).ptr != end ||
        text.empty())
        return text;
    return std::to_string(seconds + (clock_() - uptime_written_).count());
}

bool RequestHandler::set(std::string_view text, bool journaled) {
    // A text without a blank was cut off within its path.
    const std::size_t blank = text.find(' ');
    if (blank == std::string_view::npos)
        return false;
    const std::string_view path = text.substr(0, blank);
    const std::string_view value = text.substr(blank + 1);
    if (!tree_.set(path, value))
        return false;
    if (names_uptime(path))
        uptime_written_ = clock_();
    if (journaled)
        journal_.record("wrote", std::string(path).append(" = ").append(value));
    return true;
}

bool RequestHandler::remove(std::string_view path, bool journaled) {
    if (!tree_.remove(path))
        return false;
    if (journaled)
        journal_.record("deleted", path);
    return true;
}

bool RequestHandler::load(const std::string &file) {
    auto loaded = load_tree_file(file);
    if (!loaded)
        return false;
    if (!loaded->get(UPTIME).empty())
        uptime_written_ = clock_();
    tree_.replace_by(*std::move(loaded));
    return true;
}
