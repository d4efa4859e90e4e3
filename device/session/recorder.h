// Writes a live session as a transcript scenario that plays back unchanged.
#pragma once

#include "session/transcript.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace session {

class Recorder {
public:
    // `piped`: standard input is a pipe.
    explicit Recorder(bool piped);

    // Bytes that went to the line editor.
    void typed(std::string_view bytes) { typed_ += bytes; }

    // Bytes that went in while a command ran. On a terminal they cannot be played back; the
    // transcript says so in a comment.
    void typed_to_command(std::string_view bytes);

    // The session came to rest at a prompt, or the program ended (`exit_status`). `printed` is what
    // it printed since the last rest without the prompt, `journal` the journal's new lines.
    void at_rest(std::string_view printed, const std::vector<std::string> &journal,
                 std::optional<int> exit_status);

    // The transcript so far.
    [[nodiscard]] std::string text() const { return render_scenario(scenario_); }

private:
    Step take_step(std::string_view &printed);

    Scenario scenario_;
    std::string typed_;
    std::string typed_to_command_;
};

} // namespace session
