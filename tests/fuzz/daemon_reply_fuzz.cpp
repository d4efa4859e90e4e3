// Answers of the configuration daemon: whatever comes, the client reads no more than it asked for
// and ends its texts.
#include "fuzz_target.h"

#include "config/device_utilities.h"
#include "config/node_access.h"
#include "fuzz/scripted_host.h"

#include <cstring>

namespace {

void copy_text(std::uint16_t action) {
    char *text = nullptr;
    std::size_t size = 0;
    std::FILE *stream = open_memstream(&text, &size);
    xmldb_text_action(xmldb_open(nullptr), action, 0, "/node", stream);
    std::fclose(stream);
    std::free(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const ScriptedHost host({fuzz_text(data, size)}, Answers::RAW);
    ShortValue<3> three;
    cfg_get(three, "/node");
    require(std::strlen(three.text()) <= 3);
    ValueBuffer value;
    cfg_get(value, "/node");
    require(std::strlen(value.text()) <= value.limit());
    char part[16];
    require(xmldb_get_format(xmldb_open(nullptr), part, sizeof part, "/n:%d", 1) <= 16);
    copy_text(XMLDB_GET);
    copy_text(XMLDB_TEXT_10);
    cfg_number("/node");
    cfg_del("/node");
    xmldb_set(xmldb_open(nullptr), 0, "/node", "value");
    xmldb_pair_action(xmldb_open(nullptr), 0, "one", "two");
    return 0;
}
