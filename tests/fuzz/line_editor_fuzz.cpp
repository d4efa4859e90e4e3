// Bytes typed at the prompt: after each the screen shows the line, with the cursor in its place.
#include "fuzz_target.h"

#include "unit/editor_on_screen.h"

namespace {

// Completes as the console does, without its tables.
bool complete_to_ssid(void *, std::string_view before, char (&completed)[LINE_BUFFER_SIZE]) {
    std::snprintf(completed, sizeof completed, "%.*sid ", static_cast<int>(before.size()),
                  before.data());
    return before.ends_with("ss") && before.size() + 3 <= LINE_LIMIT;
}

// The highest bytes, which the editor does not take, stand for a run of characters, so that short
// inputs reach the end of a line.
constexpr std::size_t run_length(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value < 0xfe ? 1 : std::size_t{70} * (value - 0xfd);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    EditorOnScreen editing(complete_to_ssid);
    for (const char key : fuzz_text(data, size)) {
        for (std::size_t times = run_length(key); times > 0; --times) {
            const LineEditor::State state = editing.feed(run_length(key) > 1 ? 'm' : key, nullptr);
            if (state == LineEditor::State::EndOfInput)
                return 0;
            require(state == LineEditor::State::Editing || editing.finish());
        }
        require_no(editing.fault());
    }
    return 0;
}
