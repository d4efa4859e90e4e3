#include "shell/output.h"

#include <cstdarg>
#include <cstdio>

namespace {

[[gnu::format(printf, 1, 0)]] int print_flushed(const char *format, std::va_list values) {
    const int printed = std::vprintf(format, values);
    std::fflush(stdout);
    return printed;
}

} // namespace

int cli_printf(const char *format, ...) {
    std::va_list values;
    va_start(values, format);
    const int printed = print_flushed(format, values);
    va_end(values);
    return printed;
}

const char *printable_text(ReadTarget value) {
    for (char *at = value.data; *at != '\0'; ++at) {
        if (static_cast<unsigned char>(*at) < 0x20 || *at == 0x7f)
            *at = '?';
    }
    return value.data;
}

void print_lines(std::initializer_list<const char *> lines) {
    for (const char *line : lines)
        cli_printf("%s\n", line);
}

int refuse(const char *format, ...) {
    std::va_list values;
    va_start(values, format);
    print_flushed(format, values);
    va_end(values);
    return CLI_REFUSED;
}

bool complain(const char *format, ...) {
    std::va_list values;
    va_start(values, format);
    print_flushed(format, values);
    va_end(values);
    return false;
}
