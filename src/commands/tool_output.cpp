#include "commands/tool_output.h"

#include "config/host_command.h"
#include "shell/output.h"

// The formats come from template arguments of this program's own rows.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

int show_tool_output(const char *command, const char *format, std::size_t limit) {
    ShortValue<1023> output;
    ReadTarget target(output);
    target.limit = limit;
    capture_command_line(target, CommandLine(command, {}));
    cli_printf(format, output.text());
    return CLI_DONE;
}
