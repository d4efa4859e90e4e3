#pragma once

#include <array>
#include <memory>

// The last lines entered, oldest first, and the position of browsing among them. The position after
// the newest is that of the line being typed.
class History {
public:
    static constexpr int CAPACITY = 5;

    // Adds a line as the newest and stops browsing. Without memory the line is dropped.
    void add(const char *line);

    // Moves back to the line being typed.
    void stop_browsing();

    // Moves to the previous or next entry and returns it; null at the ends, and when there is no
    // memory to keep `fresh_line`, the line typed so far. After the newest entry comes that line.
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
