#pragma once

#include "config/text_utilities.h"

#include <cstddef>
#include <memory>
#include <new>

// For a large variable that is always written before it is read, in builds that clear variables:
// clearing would cost more than the rest of a read.
#if __has_attribute(uninitialized)
#define WAP_NOT_CLEARED __attribute__((uninitialized))
#else
#define WAP_NOT_CLEARED
#endif

// A zero-filled heap buffer for one text: `limit` bytes and a NUL. The allocation may fail: test
// the buffer before use.
class ValueBuffer {
public:
    static constexpr std::size_t USUAL_LIMIT = 4096;

    explicit ValueBuffer(std::size_t limit = USUAL_LIMIT)
        : text_(new (std::nothrow) char[limit + 1]()), limit_(limit) {}

    // False when memory ran out.
    explicit operator bool() const { return text_ != nullptr; }

    [[nodiscard]] char *data() { return text_.get(); }
    [[nodiscard]] std::size_t limit() const { return limit_; }

    [[nodiscard]] const char *text() const { return text_.get(); }
    [[nodiscard]] bool empty() const { return text_[0] == '\0'; }

    // The text's decimal value; 0 when it is empty or no number.
    [[nodiscard]] int number() const { return decimal_value(text_.get()); }

private:
    std::unique_ptr<char[]> text_;
    std::size_t limit_;
};

// The same without an allocation, for at most `Limit` bytes. Made empty, but not zero-filled.
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

// Where a read puts its text: at most `limit` bytes, with room for a NUL after them.
struct ReadTarget {
    char *data;
    std::size_t limit;

    ReadTarget(ValueBuffer &value) : data(value.data()), limit(value.limit()) {}

    template <std::size_t Limit>
    ReadTarget(ShortValue<Limit> &value) : data(value.data()), limit(Limit) {}
};
