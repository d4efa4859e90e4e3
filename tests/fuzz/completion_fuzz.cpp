// Completion: on each visit the line stays as it is, or becomes one that fits the buffer. Behind a
// first byte of 'u' the debug level is unlocked.
#include "fuzz_target.h"
#include "tame_tables.h"

#include "shell/completion.h"

#include <algorithm>
#include <cstring>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view input = fuzz_text(data, size);
    debug_locked = input.starts_with('u') ? 0 : -1;
    const std::string_view line = input.substr(std::min<std::size_t>(size, 1), LINE_LIMIT);
    const auto cli = std::make_unique<CliContext>();
    const auto completed = std::make_unique<char[][LINE_BUFFER_SIZE]>(1);
    if (complete_line(*cli, tame_root_table(), line, completed[0]))
        require(std::memchr(completed[0], '\0', LINE_BUFFER_SIZE) != nullptr);
    require(std::count(cli->argument_ring.begin(), cli->argument_ring.end(), nullptr) ==
            CliContext::RING_SLOTS);
    return 0;
}
