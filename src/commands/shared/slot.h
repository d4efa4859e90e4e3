// Multi-SSID slots, the three SSIDs of a radio beside its primary one: the switches, values and
// displays of a slot. Results are those of handlers, see CliHandler.
//
// Nodes of a slot are written "/wlan/inf:N/multi/index:" + slot + leaf, with N the number of the
// current band's interface and a leaf such as "/ssid".
#pragma once

#include "commands/shared/line_index.h"
#include "commands/shared/rows.h"
#include "commands/shared/value_rule.h"
#include "config/node_access.h"

inline constexpr int SLOT_COUNT = 3;

inline constexpr char SLOT_NOT_SPECIFIED[] =
    "Wrong input parameters. Please specify the correct Multi-SSID index (1-3).\n";
inline constexpr IndexRefusal SLOT_REFUSAL{
    .wrong_count = SLOT_NOT_SPECIFIED,
    .out_of_range = "Please specify the correct Multi-SSID index (1-3).\n",
};
inline constexpr char SLOT_NOT_CORRECT[] = "Please input correct multi_SSID index: 1-3\n";

// Reads a leaf of a slot, as cfg_get does.
int read_slot(ReadTarget value, const CliContext &cli, const LineIndex &slot, const char *leaf);

// Writes a leaf of a slot, as cfg_set does.
int write_slot(const char *value, const CliContext &cli, const LineIndex &slot, const char *leaf);

// A leaf that is set to a fixed value. The slot is the only word, read by arg_uint.
struct SlotSwitch {
    const char *leaf;
    IndexRefusal refusal;
};

// Takes the slot, writes `value`, sets APPLY_WLAN.
int store_slot_switch(CliContext &cli, const SlotSwitch &target, const char *value);

// A leaf that is set to a value. The value and the slot are the only words.
struct SlotSetter {
    const char *leaf;
    ValueRule rule;
    const char *value_name; // named beside the slot in the refusal of a wrong number of words
    const char *error_line;
    const char *value_error = error_line; // after the message of the rule or of arg_uint
    const char *out_of_range = SLOT_NOT_CORRECT;
    const char *slot_error = error_line; // after out_of_range
    bool as_number = false;              // the slot goes into the path as a number
};

// Takes the value and the slot, writes the value, sets APPLY_WLAN.
int store_slot_value(CliContext &cli, const SlotSetter &setter);

enum class SlotValue { Text, Number, Name };

// A leaf that is displayed as "SUBJECT (index 1) is VALUE". The slot is the only word.
struct SlotDisplay {
    const char *leaf;
    const char *subject;
    SlotValue kind;
    NumberName *name = nullptr; // of a Name
    const char *tail = "\n";
    IndexRefusal refusal = SLOT_REFUSAL;
    int refused = CLI_DONE; // the result after the refusal
};

// Takes the slot and shows the leaf. Returns `refused` after the refusal of words.
int show_slot_value(CliContext &cli, const SlotDisplay &display);

// The handlers of such rows.

template <const SlotSwitch &Target, FixedText Value>
int switch_slot(CliContext &cli, const char *, CliCommand *) {
    return store_slot_switch(cli, Target, Value.text);
}

template <const SlotSetter &Setter>
int set_slot(CliContext &cli, const char *, CliCommand *) {
    return store_slot_value(cli, Setter);
}

template <const SlotDisplay &Display>
int show_slot(CliContext &cli, const char *, CliCommand *) {
    return show_slot_value(cli, Display);
}
