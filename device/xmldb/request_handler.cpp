#include "request_handler.h"

#include "config_file.h"

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
        ++gets_;
        return text_reply(tree_.get(text));
    case XMLDB_SET:
        ++sets_;
        return status_reply(set(text, journaled));
    case XMLDB_DEL:
        ++deletes_;
        return status_reply(remove(text, journaled));
    case 6: // the text actions that this daemon has no use for
    case 7:
    case 10:
        return text_reply("");
    case XMLDB_STOP:
        stopping_ = true;
        return status_reply(true);
    case XMLDB_STATISTICS:
        return text_reply(statistics());
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

bool RequestHandler::set(std::string_view text, bool journaled) {
    // A text without a blank was cut inside its path: it names no node that anybody meant.
    const std::size_t blank = text.find(' ');
    if (blank == std::string_view::npos)
        return false;
    const std::string_view path = text.substr(0, blank);
    const std::string_view value = text.substr(blank + 1);
    if (!tree_.set(path, value))
        return false;
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
    tree_.replace_by(*std::move(loaded));
    return true;
}

std::string RequestHandler::statistics() const {
    return "connections " + std::to_string(connections_) + "\ngets " + std::to_string(gets_) +
           "\nsets " + std::to_string(sets_) + "\ndeletes " + std::to_string(deletes_) + '\n';
}
