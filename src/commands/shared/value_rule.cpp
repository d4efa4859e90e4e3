#include "commands/shared/value_rule.h"

#include "shell/args.h"
#include "shell/output.h"

#include <cstdio>
#include <cstring>

const char *DecimalText::of(int number) {
    std::snprintf(digits_, sizeof digits_, "%d", number);
    return digits_;
}

bool CheckedValue::take(CliContext &cli, const ValueRule &rule) {
    std::uint32_t measure = 0;
    if (rule.kind == ValueKind::Number) {
        if (arg_uint(cli, measure, 10) != 0)
            return false;
        text_ = digits_.of(static_cast<int>(measure));
    } else {
        const char *word = arg_next(cli);
        if (word == nullptr)
            return false;
        measure = static_cast<std::uint32_t>(std::strlen(word));
        text_ = word;
    }
    const bool good =
        (rule.low <= measure && measure <= rule.high) || (rule.or_zero && measure == 0);
    if (!good)
        cli_printf("%s", rule.message);
    return good;
}
