#include "commands/shared/slot.h"

#include "config/apply.h"
#include "shell/args.h"
#include "shell/output.h"

namespace {

constexpr char SLOT_LEAF[] = "/wlan/inf:%d/multi/index:%s%s";

// A slot by its number, 1..3.
LineIndex numbered_slot(int number) {
    static constexpr char WORDS[SLOT_COUNT][2] = {"1", "2", "3"};
    return {WORDS[number - 1], number};
}

} // namespace

int read_slot(ReadTarget value, const CliContext &cli, const LineIndex &slot, const char *leaf) {
    return cfg_get(value, SLOT_LEAF, interface_number(cli), slot.word, leaf);
}

int write_slot(const char *value, const CliContext &cli, const LineIndex &slot, const char *leaf) {
    return cfg_set(value, SLOT_LEAF, interface_number(cli), slot.word, leaf);
}

int store_slot_switch(CliContext &cli, const SlotSwitch &target, const char *value) {
    const int slot = take_index_number(cli, 1, SLOT_COUNT, target.refusal);
    if (slot == 0)
        return CLI_REFUSED;
    write_slot(value, cli, numbered_slot(slot), target.leaf);
    return mark_for_apply(APPLY_WLAN);
}

int store_slot_value(CliContext &cli, const SlotSetter &setter) {
    if (arg_count(cli) != 2)
        return refuse("Wrong input parameters. Please input %s and Multi-SSID index (1-3).\n%s",
                      setter.value_name, setter.error_line);
    DecimalText digits;
    const char *value = take_value(cli, setter.rule, digits);
    if (value == nullptr)
        return refuse("%s", setter.value_error);
    const LineIndex slot = take_index(
        cli, 1, SLOT_COUNT, {.out_of_range = setter.out_of_range, .error_line = setter.slot_error});
    if (!slot)
        return CLI_REFUSED;
    write_slot(value, cli, setter.as_number ? numbered_slot(slot.number) : slot, setter.leaf);
    return mark_for_apply(APPLY_WLAN);
}

int show_slot_value(CliContext &cli, const SlotDisplay &display) {
    const LineIndex slot = take_index(cli, 1, SLOT_COUNT, display.refusal);
    if (!slot)
        return display.refused;
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
