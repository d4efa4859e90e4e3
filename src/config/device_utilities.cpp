#include "config/device_utilities.h"

#include <cstring>
#include <new>

int xmldb_pair_action(const UniqueFd &connection, std::uint32_t flags, const char *first,
                      const char *second) {
    char pair[256];
    std::snprintf(pair, sizeof pair, "%s %s", first, second);
    return xmldb_status_action(connection, XMLDB_STATUS_PAIR_8, flags, pair);
}

void cut_trailing_blanks(char *text) {
    std::size_t length = std::strlen(text);
    while (length > 0 && (text[length - 1] == ' ' || text[length - 1] == '\t'))
        text[--length] = '\0';
}

void weekday_range(int first_day, int last_day, char (&names)[WEEKDAY_RANGE_SIZE]) {
    static constexpr char DAYS[] = "Sun,Mon,Tue,Wed,Thu,Fri,Sat,Sun,Mon,Tue,Wed,Thu,Fri,Sat,";
    constexpr std::size_t NAME = 4; // three letters and a comma
    constexpr int WEEK = 7;
    const int first = (first_day % WEEK + WEEK) % WEEK;
    const int last = (last_day % WEEK + WEEK) % WEEK;
    const auto days = static_cast<std::size_t>((last - first + WEEK) % WEEK + 1);
    const std::size_t length = days * NAME - 1;
    std::memcpy(names, DAYS + static_cast<std::size_t>(first) * NAME, length);
    names[length] = '\0';
}

std::unique_ptr<char[]> read_line(std::FILE *stream, bool drop_newline) {
    constexpr std::size_t STEP = 80;
    std::unique_ptr<char[]> line;
    std::size_t size = 0;
    std::size_t length = 0;
    int c = 0;
    while (c != '\n' && (c = std::getc(stream)) != EOF) {
        if (c == '\r')
            continue;
        if (length + 1 >= size) {
            std::unique_ptr<char[]> larger(new (std::nothrow) char[size + STEP]());
            if (larger == nullptr)
                return nullptr;
            if (length > 0)
                std::memcpy(larger.get(), line.get(), length);
            line = std::move(larger);
            size += STEP;
        }
        if (c != '\n' || !drop_newline)
            line[length++] = static_cast<char>(c);
        line[length] = '\0';
    }
    return line;
}

PointerArray::PointerArray(std::size_t growth_step)
    : growth_step_(growth_step != 0 ? growth_step : 16) {}

bool PointerArray::grow_to(std::size_t index) {
    const std::size_t size = (index / growth_step_ + 1) * growth_step_;
    std::unique_ptr<Entry[]> larger(new (std::nothrow) Entry[size]);
    if (larger == nullptr)
        return false;
    for (std::size_t at = 0; at < size_; ++at)
        larger[at] = std::move(entries_[at]);
    entries_ = std::move(larger);
    size_ = size;
    return true;
}

bool PointerArray::set(std::size_t index, Entry entry, bool keep_old) {
    if (index >= size_ && !grow_to(index))
        return false;
    if (keep_old)
        static_cast<void>(entries_[index].release());
    entries_[index] = std::move(entry);
    return true;
}

char *PointerArray::get(std::size_t index) const {
    return index < size_ ? entries_[index].get() : nullptr;
}

void PointerArray::forget_entries() {
    for (std::size_t at = 0; at < size_; ++at)
        static_cast<void>(entries_[at].release());
}
