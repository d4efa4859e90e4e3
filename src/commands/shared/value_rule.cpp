#include "commands/shared/value_rule.h"

#include "shell/args.h"
#include "shell/output.h"

#include <cstdio>
#include <cstring>

const char *DecimalText::of(int number) {
    std::snprintf(digits_, sizeof digits_, "%d", number);
    return digits_;
}

const char *take_value(CliContext &cli, const ValueRule &rule, DecimalText &digits) {
    std::uint32_t measure = 0;
    const char *value = nullptr;
    if (rule.kind == ValueKind::Number) {
        if (arg_uint(cli, measure, 10) != 0)
            return nullptr;
        value = digits.of(static_cast<int>(measure));
    } else {
        value = arg_next(cli);
        if (value == nullptr)
            return nullptr;
        measure = static_cast<std::uint32_t>(std::strlen(value));
    }
    if ((rule.low <= measure && measure <= rule.high) || (rule.or_zero && measure == 0))
        return value;
    cli_printf("%s", rule.message);
    return nullptr;
}
