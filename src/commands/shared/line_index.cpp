#include "commands/shared/line_index.h"

#include "shell/args.h"
#include "shell/output.h"

LineIndex take_index(CliContext &cli, int words, int last, const IndexRefusal &refusal) {
    const char *reason = refusal.wrong_count;
    if (arg_count(cli) == words) {
        const char *word = arg_next(cli);
        if (in_range(word, 1, last) != 0)
            return {word, decimal_value(word)};
        reason = refusal.out_of_range;
    }
    cli_printf("%s%s", reason, refusal.error_line);
    return {};
}

int take_index_number(CliContext &cli, int words, int last, const IndexRefusal &refusal) {
    std::uint32_t index = 0;
    const char *reason = refusal.out_of_range;
    if (arg_count(cli) != words)
        reason = refusal.wrong_count;
    else if (arg_uint(cli, index, 10) != 0)
        reason = refusal.not_a_number;
    else if (index >= 1 && index <= static_cast<std::uint32_t>(last))
        return static_cast<int>(index);
    cli_printf("%s%s", reason, refusal.error_line);
    return 0;
}
