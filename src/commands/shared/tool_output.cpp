#include "commands/shared/tool_output.h"

#include "shell/output.h"

// The formats come from template arguments of this program's own rows.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

int show_tool_output(const CommandLine &line, const char *format, std::size_t limit) {
    ShortValue<1023> output;
    ReadTarget target(output);
    target.limit = limit;
    capture_command_line(target, line);
    cli_printf(format, output.text());
    return CLI_DONE;
}
