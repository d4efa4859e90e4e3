// What the fuzz targets share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

// Ends the program, with a stack trace that leads to the broken promise.
inline void require(bool holds) {
    if (!holds)
        std::abort();
}

// The same, saying what is wrong when anything is.
inline void require_no(const std::string &fault) {
    if (!fault.empty())
        std::fprintf(stderr, "%s\n", fault.c_str());
    require(fault.empty());
}

inline std::string_view fuzz_text(const std::uint8_t *data, std::size_t size) {
    return {reinterpret_cast<const char *>(data), size};
}

// The parts between the separators; "" is one empty part.
inline std::vector<std::string_view> split_at(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}
