#pragma once

#include "config/text_utilities.h"

#include <cstddef>
#include <memory>
#include <new>

// For a large variable that is always written before it is read: where the build clears variables,
// this one is spared, as clearing it would cost more than the rest of a read.
#if __has_attribute(uninitialized)
#define WAP_NOT_CLEARED __attribute__((uninitialized))
#else
#define WAP_NOT_CLEARED
#endif

// Memory for one text read from outside: `limit` bytes and a NUL behind them, on the heap and
// zero-filled. The allocation may fail: test it before use.
class ValueBuffer {
public:
    static constexpr std::size_t USUAL_LIMIT = 4096;

    explicit ValueBuffer(std::size_t limit = USUAL_LIMIT)
        : text_(new (std::nothrow) char[limit + 1]()), limit_(limit) {}

    // False when memory ran out.
    explicit operator bool() const { return text_ != nullptr; }

    [[nodiscard]] char *data() { return text_.get(); }
    [[nodiscard]] std::size_t limit() const { return limit_; }

    // The text, which always ends.
    [[nodiscard]] const char *text() const { return text_.get(); }
    [[nodiscard]] bool empty() const { return text_[0] == '\0'; }

    // The text's decimal value; 0 when it is empty or no number.
    [[nodiscard]] int number() const { return decimal_value(text_.get()); }

private:
    std::unique_ptr<char[]> text_;
    std::size_t limit_;
};

// The same held in place, so that it cannot fail: a read of at most `Limit` bytes. Only made empty,
// not zero-filled: zeros in bulk would be a copy from the program's own read-only data.
template <std::size_t Limit>
class ShortValue {
public:
    ShortValue() { text_[0] = '\0'; }

    [[nodiscard]] char *data() { return text_; }
    [[nodiscard]] std::size_t limit() const { return Limit; }
    [[nodiscard]] const char *text() const { return text_; }
    [[nodiscard]] bool empty() const { return text_[0] == '\0'; }
    [[nodiscard]] int number() const { return decimal_value(text_); }

private:
    char text_[Limit + 1];
};

using UsualValue = ShortValue<ValueBuffer::USUAL_LIMIT>;

// Where a read puts its text: at most `limit` bytes, with room for a NUL behind them.
struct ReadTarget {
    char *data;
    std::size_t limit;

    ReadTarget(ValueBuffer &value) : data(value.data()), limit(value.limit()) {}

    template <std::size_t Limit>
    ReadTarget(ShortValue<Limit> &value) : data(value.data()), limit(Limit) {}
};
