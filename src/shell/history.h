#pragma once

#include <array>
#include <memory>

// The last lines entered, oldest first, and the place that browsing has reached among them. The
// place behind the newest is that of the fresh line being typed.
class History {
public:
    static constexpr int CAPACITY = 5;

    // Remembers a line as the newest and moves behind it. Without memory it is not remembered.
    void add(const char *line);

    // Back to the place behind the newest entry.
    void stop_browsing();

    // The entry before or behind the current place, which moves there; null at the ends, and when
    // memory for keeping `fresh_line`, the line typed so far, ran out. Moving behind the newest
    // entry gives that line back.
    const char *previous(const char *fresh_line);
    const char *next();

private:
    using Line = std::unique_ptr<char[]>;

    static Line copy(const char *line);

    std::array<Line, CAPACITY> entries_;
    Line fresh_line_;
    int count_ = 0;
    int browsing_ = 0;
};
