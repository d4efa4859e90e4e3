// Command rows made of the settings that an array can keep in step: one for each, in each of three
// tables.
#pragma once

#include "commands/shared/rows.h"
#include "config/sync_items.h"
#include "shell/command.h"

#include <algorithm>
#include <array>
#include <string_view>

// The words of the items in the order of the command tables: that of the flags, but acl last.
consteval auto sync_words() {
    std::array<const char *, SYNC_ITEM_COUNT> words{};
    std::size_t next = 0;
    for (const SyncItem &item : SYNC_ITEMS) {
        const bool last = std::string_view(item.word) == "acl";
        words[last ? SYNC_ITEM_COUNT - 1 : next++] = item.word;
    }
    return words;
}

inline constexpr auto SYNC_WORDS = sync_words();

// `Before`, an item's word and `After` as one text, for every word; made at compile time.
template <FixedText Before, FixedText After>
class SyncTexts {
public:
    consteval SyncTexts() {
        char *end = text_;
        for (const std::string_view word : SYNC_WORDS) {
            for (const std::string_view part : {std::string_view(Before.text), word, AFTER})
                end = std::copy(part.begin(), part.end(), end);
            ++end; // the NUL that is there
        }
    }

    // The text of the word at `index`.
    consteval const char *operator[](std::size_t index) const {
        const char *text = text_;
        while (index-- > 0)
            text += std::string_view(text).size() + 1;
        return text;
    }

private:
    static constexpr std::string_view AFTER = After.text;

    static consteval std::size_t size() {
        std::size_t size = 0;
        for (const std::string_view word : SYNC_WORDS)
            size += std::string_view(Before.text).size() + word.size() + AFTER.size() + 1;
        return size;
    }

    char text_[size()]{};
};

// Stands before an item's word among the get rows.
inline constexpr char SYNC_ROW_PREFIX[] = "array-sync-";

inline constexpr SyncTexts<"enable sync ", " state"> SYNC_ENABLE_HELP;
inline constexpr SyncTexts<"disable sync ", " state"> SYNC_DISABLE_HELP;
inline constexpr SyncTexts<SYNC_ROW_PREFIX, ""> SYNC_GET_NAMES;
inline constexpr SyncTexts<"Display AP Array sync ", " state"> SYNC_GET_HELP;

// A row for every item, whose handler finds it by the row's name. `names` and `help` give the text
// at an index.
template <class Names, class Help>
consteval auto array_sync_rows(const Names &names, const Help &help, CliHandler *handler) {
    std::array<CliCommand, SYNC_ITEM_COUNT> rows{};
    for (std::size_t index = 0; index < SYNC_ITEM_COUNT; ++index)
        rows[index] = {names[index], help[index], handler};
    return rows;
}
