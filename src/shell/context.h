// The per-process state that every command handler receives.
#pragma once

#include <array>
#include <cstdint>

struct CliCommand;

// Codes that a handler or a dispatch returns to the dispatcher above it.
enum CliResult : int {
    CLI_REFUSED = -1,      // refused, and the reason was printed
    CLI_DONE = 0,          // done, also after many printed errors
    CLI_LIST_SUBTABLE = 2, // the caller lists the row's subtable
    CLI_LISTED = 3,        // a listing was shown instead of a command
    CLI_UNKNOWN = 5,       // word not found, at most two words taken
    CLI_BAD_PARAMETER = 7, // word not found, deeper down
};

struct CliContext {
    static constexpr int TABLE_STACK_SLOTS = 55;
    static constexpr int RING_SLOTS = 50;
    static constexpr int WORD_BUFFER_SIZE = 4100;

    std::array<CliCommand *, TABLE_STACK_SLOTS> table_stack;
    std::int32_t current_band;                    // 0 = 2.4 GHz, 1 = 5 GHz; outlives the line
    std::array<char *, RING_SLOTS> argument_ring; // words of the line buffer, null when empty
    char *first_word;
    std::int32_t ring_head;             // 0..49, the next slot to fill
    std::int32_t consumed_count;        // words taken by the dispatcher and the value parsers
    std::int32_t word_count;            // words that completion put into the ring
    std::int32_t depth;                 // tables on the stack
    char word_buffer[WORD_BUFFER_SIZE]; // the word being matched, lowered
};

// -1 while debug commands are locked, 0 once `orvik` unlocked them.
extern std::int32_t debug_locked;

// The row whose handler runs, or ran last.
extern CliCommand *current_command;

// Number of the current band's interface in node paths: 1 is 2.4 GHz, 2 is 5 GHz.
inline int interface_number(const CliContext &cli) {
    return cli.current_band + 1;
}

// Puts a word (not copied) into the next slot of the ring. From the 51st word on the oldest are
// overwritten, so only the last 50 words of a line survive.
void ring_push(CliContext &cli, char *word);

// Splits a line in place at blanks and pushes its words; tabs, quotes and backslashes have no
// meaning. Returns the number of words pushed.
int split_line(CliContext &cli, char *line);

// Everything back to zero but the current band.
void reset_context(CliContext &cli);
