// Requests to the stand-in's database daemon, one behind the other as on the wire: each is
// answered, and the tree stays one that can be saved and loaded again.
#include "fuzz_target.h"

#include "xmldb/config_file.h"
#include "xmldb/request_handler.h"

#include <cstring>

namespace {

// These would read and write files of this machine.
bool touches_files(std::string_view request) {
    XmldbRequestHeader header{};
    std::memcpy(&header, request.data(), sizeof header);
    return header.action == XMLDB_LOAD || header.action == XMLDB_SAVE;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const JournalWriter JOURNAL("/dev/null");
    NodeTree tree;
    RequestHandler handler(tree, JOURNAL);
    std::string_view bytes = fuzz_text(data, size);
    while (const std::size_t length = RequestHandler::request_size(bytes)) {
        const std::string_view request = bytes.substr(0, length);
        if (!touches_files(request))
            require(!handler.answer(request).empty());
        bytes.remove_prefix(length);
    }
    const std::string text = tree_to_text(tree, Selection::ALL);
    if (const std::optional<NodeTree> loaded = parse_tree(text))
        require(tree_to_text(*loaded, Selection::ALL) == text);
    else
        require(text.empty());
    return 0;
}
