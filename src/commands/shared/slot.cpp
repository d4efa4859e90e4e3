#include "commands/shared/slot.h"

#include "config/apply.h"
#include "shell/args.h"
#include "shell/output.h"

namespace {

constexpr char SLOT_LEAF[] = "/wlan/inf:%d/multi/index:%s%s";

bool is_slot(std::int64_t number) {
    return number >= 1 && number <= SLOT_COUNT;
}

} // namespace

Slot numbered_slot(int number) {
    static constexpr char NAMES[SLOT_COUNT][2] = {"1", "2", "3"};
    return {NAMES[number - 1], number};
}

bool take_slot(CliContext &cli, Slot &slot) {
    const char *word = arg_next(cli);
    if (word == nullptr)
        return false;
    slot = {word, decimal_value(word)};
    return is_slot(slot.number);
}

bool take_only_slot(CliContext &cli, Slot &slot, const char *wrong_count,
                    const char *out_of_range) {
    if (arg_count(cli) != 1)
        cli_printf("%s", wrong_count);
    else if (!take_slot(cli, slot))
        cli_printf("%s", out_of_range);
    else
        return true;
    return false;
}

int read_slot(ReadTarget value, const CliContext &cli, const Slot &slot, const char *leaf) {
    return cfg_get(value, SLOT_LEAF, interface_number(cli), slot.name, leaf);
}

int write_slot(const char *value, const CliContext &cli, const Slot &slot, const char *leaf) {
    return cfg_set(value, SLOT_LEAF, interface_number(cli), slot.name, leaf);
}

int store_slot_switch(CliContext &cli, const SlotSwitch &target, const char *value) {
    std::uint32_t number = 0;
    if (arg_count(cli) != 1)
        return refuse("%s%s", target.wrong_count, target.error_line);
    if (arg_uint(cli, number, 10) != 0)
        return refuse("%s%s", target.not_a_number, target.error_line);
    if (!is_slot(number))
        return refuse("%s%s", target.out_of_range, target.error_line);
    write_slot(value, cli, numbered_slot(static_cast<int>(number)), target.leaf);
    return mark_for_apply(APPLY_WLAN);
}

int store_slot_value(CliContext &cli, const SlotSetter &setter) {
    if (arg_count(cli) != 2)
        return refuse("Wrong input parameters. Please input %s and Multi-SSID index (1-3).\n%s",
                      setter.wanted, setter.error_line);
    CheckedValue value;
    if (!value.take(cli, setter.rule))
        return refuse("%s", setter.value_error);
    Slot slot{};
    if (!take_slot(cli, slot))
        return refuse("%s%s", setter.out_of_range, setter.slot_error);
    write_slot(value.text(), cli, setter.as_number ? numbered_slot(slot.number) : slot,
               setter.leaf);
    return mark_for_apply(APPLY_WLAN);
}

int show_slot_value(CliContext &cli, const SlotDisplay &display) {
    Slot slot{};
    if (!take_only_slot(cli, slot, display.wrong_count, display.out_of_range))
        return display.refusal;
    ValueBuffer value;
    if (!value)
        return refuse(CANT_ALLOC_MEMORY);
    read_slot(value, cli, slot, display.leaf);
    DecimalText digits;
    const char *text = value.text();
    if (display.kind == SlotValue::Number)
        text = digits.of(value.number());
    else if (display.kind == SlotValue::Name)
        text = display.name(value.number());
    cli_printf("%s (index %d) is %s%s", display.subject, slot.number, text, display.tail);
    return CLI_DONE;
}
