// The screen of a terminal, as far as the line editor uses it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class TerminalModel {
public:
    static constexpr int ROWS = 256; // more than the longest line fills

    explicit TerminalModel(int columns)
        : columns_(columns), blank_row_(static_cast<std::size_t>(columns), ' '), rows_{blank_row_} {
    }

    // Takes what was written to the terminal; a sequence may be split between calls.
    void write(std::string_view bytes) {
        for (const char byte : bytes)
            take(byte);
    }

    // Rows count from the first one ever used, so that they keep their numbers when the screen
    // scrolls.
    [[nodiscard]] int row() const { return row_; }
    [[nodiscard]] int column() const { return column_; }

    // A row's text without the blanks at its end.
    [[nodiscard]] std::string text(int row) const {
        if (row >= static_cast<int>(rows_.size()))
            return {};
        const std::string &cells = rows_[static_cast<std::size_t>(row)];
        return cells.substr(0, cells.find_last_not_of(' ') + 1);
    }

    // The rows from `first` to the last one used, joined at the edge as one text.
    [[nodiscard]] std::string text_from(int first) const {
        std::string text;
        for (auto row = static_cast<std::size_t>(first); row < rows_.size(); ++row)
            text += rows_[row];
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }

    // What was written that no terminal model should see.
    [[nodiscard]] const std::string &errors() const { return errors_; }

private:
    void take(char byte) {
        if (!sequence_.empty()) {
            sequence_ += byte;
            if (sequence_.size() > 2 && byte >= '@')
                run_sequence();
            return;
        }
        switch (byte) {
        case '\x1b':
            sequence_ = byte;
            break;
        case '\r':
            column_ = 0;
            wraps_ = false;
            break;
        case '\n': // the terminal driver adds the carriage return
            column_ = 0;
            wraps_ = false;
            line_feed();
            break;
        case '\b':
            if (column_ == 0)
                errors_ += "backspace at the left edge;";
            column_ = std::max(column_ - 1, 0);
            wraps_ = false;
            break;
        default:
            put(byte);
            break;
        }
    }

    // A character in the last column leaves the cursor there; only the next one wraps.
    void put(char byte) {
        if (byte < ' ' || byte > '~')
            errors_ += "unprintable byte " + std::to_string(byte) + ';';
        if (wraps_) {
            column_ = 0;
            line_feed();
        }
        cells()[static_cast<std::size_t>(column_)] = byte;
        wraps_ = column_ == columns_ - 1;
        column_ += wraps_ ? 0 : 1;
    }

    void line_feed() {
        ++row_;
        top_ = std::max(top_, row_ - ROWS + 1);
        cells();
    }

    void run_sequence() {
        const char final_byte = sequence_.back();
        const std::string parameter = sequence_.substr(2, sequence_.size() - 3);
        const int number = parameter.empty() ? 0 : std::stoi(parameter);
        const bool counted = !parameter.empty() && number > 0;
        if (final_byte == 'A' && counted)
            row_ = std::max(row_ - number, top_);
        else if (final_byte == 'C' && counted)
            column_ = std::min(column_ + number, columns_ - 1);
        else if (final_byte == 'D' && counted)
            column_ = std::max(column_ - number, 0);
        else if (final_byte == 'H' && parameter.empty())
            row_ = top_, column_ = 0;
        else if (final_byte == 'J' && parameter.empty())
            erase_to_end();
        else
            errors_ += "sequence " + sequence_.substr(1) + ';';
        wraps_ = false;
        sequence_.clear();
    }

    void erase_to_end() {
        cells().replace(static_cast<std::size_t>(column_), std::string::npos,
                        static_cast<std::size_t>(columns_ - column_), ' ');
        for (std::size_t row = static_cast<std::size_t>(row_) + 1; row < rows_.size(); ++row)
            rows_[row] = blank_row_;
    }

    std::string &cells() {
        while (rows_.size() <= static_cast<std::size_t>(row_))
            rows_.push_back(blank_row_);
        return rows_[static_cast<std::size_t>(row_)];
    }

    int columns_;
    std::string blank_row_;
    std::vector<std::string> rows_;
    int row_ = 0;
    int column_ = 0;
    int top_ = 0;        // first row on the screen
    bool wraps_ = false; // the next character goes to the next row
    std::string sequence_;
    std::string errors_;
};
