#include "config/text_utilities.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <limits>

void flush_output() {
    const int error = errno;
    std::fflush(stdout);
    errno = error;
}

int decimal_value(const char *text) {
    const long long number = std::strtoll(text, nullptr, 10);
    if (number > std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (number < std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(number);
}

const char *skip_leading_blanks(const char *text) {
    while (text != nullptr && (*text == ' ' || *text == '\t'))
        ++text;
    return text;
}
