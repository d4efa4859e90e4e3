// The configuration daemon's socket protocol: a 12-byte header and a text, one request per
// connection. Fields are in the host's byte order, since both ends run on one host.
#pragma once

#include <cstdint>

inline constexpr char XMLDB_SOCKET[] = "/var/run/xmldb_sock";

enum XmldbAction : std::uint16_t {
    XMLDB_GET = 1, // path; answered by the node's text and a NUL
    XMLDB_SET = 2, // "path value"; answered by a status
    XMLDB_DEL = 3, // path; answered by a status
};

struct XmldbRequestHeader {
    std::uint16_t action;
    std::uint16_t length; // bytes of text that follow, including the NUL
    std::uint32_t flags;
    std::uint8_t reserved[4];
};
static_assert(sizeof(XmldbRequestHeader) == 12);

struct XmldbStatusReply {
    std::uint8_t ignored[8];
    std::int32_t result; // -1 is failure, anything else success
};
static_assert(sizeof(XmldbStatusReply) == 12);
