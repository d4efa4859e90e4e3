// Lines as typed at the prompt, on a database of any content: the lines up to the first empty one
// are typed, those behind it are what nodes and files hold. Whatever is run through the shell must
// be one simple command, made of the words that came in.
#include "fuzz_target.h"
#include "tame_tables.h"

#include "config/apply.h"
#include "config/array_sync.h"
#include "fuzz/scripted_host.h"
#include "shell/dispatch.h"
#include "unit/recording_shell.h"
#include "unit/shell_boundary.h"

#include <memory>
#include <string>

namespace {

void start_over() {
    debug_locked = -1;
    pending_apply = 0;
    array_cfg_dirty = 0;
}

void type_line(CliContext &cli, std::string_view line, std::vector<std::string> &foreign) {
    const std::unique_ptr<char[]> text(new char[line.size() + 1]());
    line.copy(text.get(), line.size());
    for (const std::string_view word : split_at(text.get(), ' '))
        foreign.emplace_back(word);
    split_line(cli, text.get());
    cli_dispatch(cli, tame_root_table());
    reset_context(cli);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    start_over();
    const std::string_view input = fuzz_text(data, size);
    const std::size_t typed = input.find("\n\n");
    const std::string_view texts = typed < input.size() ? input.substr(typed + 2) : "";
    const ScriptedHost host(split_at(texts, '\n'), Answers::WELL_FORMED);
    RecordingShell shell;
    std::vector<std::string> foreign;
    for (const std::string_view text : split_at(texts, '\n'))
        foreign.emplace_back(text.substr(0, text.find('\0')));
    const auto cli = std::make_unique<CliContext>();
    for (const std::string_view line : split_at(input.substr(0, typed), '\n')) {
        type_line(*cli, line, foreign);
        for (const std::string &command : shell.take_lines()) {
            if (!command.starts_with("sleep ") && !command.starts_with("set clock "))
                require_no(boundary_fault(command, foreign));
        }
    }
    return 0;
}
