#include "commands/shared/rows.h"

#include "config/apply.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

// The paths and formats come from this program's own rows.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

int write_fixed_value(const CliContext &cli, const char *path, const char *value,
                      std::uint32_t apply_bits, const char *message) {
    cfg_set(value, path, interface_number(cli));
    cli_printf("%s", message);
    return mark_for_apply(apply_bits);
}

int write_word_in_range(const CliContext &cli, const char *path, const WordRange &range,
                        std::uint32_t apply_bits) {
    const char *word = arg_peek(cli, 0);
    if (word == nullptr || unsigned_value(word) < range.low || unsigned_value(word) > range.high) {
        cli_printf("%s", word == nullptr ? range.missing : range.outside);
        return range.refusal;
    }
    cfg_set(word, path, interface_number(cli));
    return mark_for_apply(apply_bits);
}

int store_value(CliContext &cli, const ValueSetter &setter) {
    if (arg_count(cli) != 1)
        return refuse("%s", setter.error_line);
    DecimalText digits;
    const char *value = take_value(cli, setter.rule, digits);
    if (value == nullptr)
        return refuse("%s", setter.value_error);
    cfg_set(value, setter.path, interface_number(cli));
    return mark_for_apply(setter.apply_bits);
}

int write_address(CliContext &cli, bool (*take)(CliContext &cli, Ipv4Text &address),
                  const char *path, std::uint32_t apply_bits, const char *message) {
    Ipv4Text address{};
    if (!take(cli, address))
        return refuse("%s", message);
    cfg_set(address.data(), path, interface_number(cli));
    return mark_for_apply(apply_bits);
}

int show_node_text(const CliContext &cli, const char *path, const char *format, std::size_t limit,
                   const char *memory_message) {
    ValueBuffer value(limit);
    if (!value)
        return refuse("%s", memory_message);
    cfg_get(value, path, interface_number(cli));
    cli_printf(format, value.text());
    return CLI_DONE;
}

const char *switch_name(int number) {
    return enable_word(number == 1);
}

int show_node_name(const CliContext &cli, const char *path, const char *format, NumberName *name,
                   const char *memory_message) {
    ValueBuffer value;
    if (!value)
        return refuse("%s", memory_message);
    cfg_get(value, path, interface_number(cli));
    cli_printf(format, name(value.number()));
    return CLI_DONE;
}

int show_node_number(const CliContext &cli, const char *path, const char *format) {
    cli_printf(format, cfg_number(path, interface_number(cli)));
    return CLI_DONE;
}

int print_numbered_line(const char *path, std::initializer_list<const char *> lines) {
    ValueBuffer value(10);
    if (!value || cfg_get_plain(value, path) != 0)
        return refuse(FAIL_TO_ALLOCATE);
    const auto line = static_cast<std::size_t>(value.number());
    cli_printf("%s", line < lines.size() ? lines.begin()[line]
                                         : "Error: unknown Linited Administration type\n");
    return CLI_DONE;
}

int show_entries(const NumberedList &list, int limit, const char *format,
                 const char *memory_message, EntryText *text) {
    ValueBuffer value;
    if (!value)
        return refuse("%s", memory_message);
    for_each_entry(list, value, limit, [&](int index) {
        cli_printf(format, index, text != nullptr ? text(value) : value.text());
    });
    return CLI_DONE;
}

int run_fixed_command(const CliContext &cli, const char *command) {
    run_command_line(CommandLine(command, {interface_number(cli)}));
    return CLI_DONE;
}

int show_tool_output(const CommandLine &line, const char *format, std::size_t limit) {
    ShortValue<1023> output;
    ReadTarget target(output);
    target.limit = limit;
    capture_command_line(target, line);
    cli_printf(format, output.text());
    return CLI_DONE;
}
