// What the stand-in adds to the configuration daemon's protocol for its own tools. The payload is
// a text, as for the public actions. In these, paths below "/wireless/" are an older name of
// "/wlan/inf:1/".
#pragma once

#include "config/xmldb_protocol.h"

enum XmldbPrivateAction : std::uint16_t {
    XMLDB_STOP = 100, // ""; answered by a status, then the daemon ends
    XMLDB_LOAD = 101, // path of a file (see load_tree_file); answered by a status
    XMLDB_SAVE = 102, // path of a file that receives the settings as XML; a status
    XMLDB_DUMP = 103, // "all" or "settings"; answered by the nodes as text
};

// Bits of the request's flags. The console sends none; the stand-in's own tools keep their writes
// out of the journal.
inline constexpr std::uint32_t XMLDB_UNJOURNALED = 1;
