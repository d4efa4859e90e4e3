#include "shell/history.h"

#include <algorithm>
#include <cstring>
#include <new>

History::Line History::copy(const char *line) {
    const std::size_t size = std::strlen(line) + 1;
    Line text(new (std::nothrow) char[size]);
    if (text != nullptr)
        std::memcpy(text.get(), line, size);
    return text;
}

void History::add(const char *line) {
    fresh_line_.reset();
    if (Line text = copy(line)) {
        if (count_ == CAPACITY) {
            std::move(entries_.begin() + 1, entries_.end(), entries_.begin());
            --count_;
        }
        entries_[static_cast<std::size_t>(count_++)] = std::move(text);
    }
    stop_browsing();
}

void History::stop_browsing() {
    browsing_ = count_;
}

const char *History::previous(const char *fresh_line) {
    if (browsing_ == 0)
        return nullptr;
    if (browsing_ == count_) {
        fresh_line_ = copy(fresh_line);
        if (fresh_line_ == nullptr)
            return nullptr;
    }
    return entries_[static_cast<std::size_t>(--browsing_)].get();
}

const char *History::next() {
    if (browsing_ == count_)
        return nullptr;
    ++browsing_;
    return browsing_ == count_ ? fresh_line_.get()
                               : entries_[static_cast<std::size_t>(browsing_)].get();
}
