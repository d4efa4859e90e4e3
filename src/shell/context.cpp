#include "shell/context.h"

#include <cstddef>
#include <cstring>

std::int32_t debug_locked = -1;
CliCommand *current_command = nullptr;

void ring_push(CliContext &cli, char *word) {
    cli.argument_ring[static_cast<std::size_t>(cli.ring_head)] = word;
    if (cli.ring_head == 0)
        cli.first_word = word;
    cli.ring_head = (cli.ring_head + 1) % CliContext::RING_SLOTS;
}

int split_line(CliContext &cli, char *line) {
    int words = 0;
    bool in_word = false;
    for (char *at = line; *at != '\0'; ++at) {
        if (*at == ' ') {
            *at = '\0';
            in_word = false;
        } else if (!in_word) {
            ring_push(cli, at);
            in_word = true;
            ++words;
        }
    }
    return words;
}

void reset_context(CliContext &cli) {
    const std::int32_t band = cli.current_band;
    // The word buffer, most of the context, only needs its first byte cleared.
    std::memset(&cli, 0, offsetof(CliContext, word_buffer) + 1);
    cli.current_band = band;
}
