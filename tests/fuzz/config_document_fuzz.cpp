// Configurations that the stand-in's daemon loads, as text or XML: what can be loaded can be saved
// in both forms, and read again to the same tree.
#include "fuzz_target.h"

#include "xmldb/config_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::optional<NodeTree> tree = parse_tree(fuzz_text(data, size));
    if (!tree)
        return 0;
    const std::string text = tree_to_text(*tree, Selection::ALL);
    if (text.empty())
        return 0;
    const std::optional<NodeTree> from_text = parse_tree(text);
    require(from_text && tree_to_text(*from_text, Selection::ALL) == text);
    const std::optional<NodeTree> from_xml = parse_tree(tree_to_xml(*tree, Selection::ALL));
    require(from_xml && tree_to_text(*from_xml, Selection::ALL) == text);
    return 0;
}
