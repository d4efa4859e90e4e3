// What the C++ library's checks of arguments call when they fail: each reports on standard error
// and aborts. Optimised code has none of these checks left; unoptimised code and
// _GLIBCXX_ASSERTIONS keep them. The attributes are spelt as in the library's own declarations,
// which clang compares.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

// NOLINTBEGIN(readability-identifier-naming): the library's names
namespace std {

[[gnu::noreturn, gnu::format(printf, 1, 2)]] void __throw_out_of_range_fmt(const char *format,
                                                                           ...) {
    std::va_list values;
    va_start(values, format);
    std::vfprintf(stderr, format, values);
    va_end(values);
    std::fputc('\n', stderr);
    std::abort();
}

[[gnu::noreturn]] void __glibcxx_assert_fail(const char *file, int line, const char *function,
                                             const char *condition) noexcept {
    std::fprintf(stderr, "%s:%d: %s: '%s' does not hold\n", file, line, function, condition);
    std::abort();
}

} // namespace std
// NOLINTEND(readability-identifier-naming)
