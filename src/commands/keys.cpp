#include "commands/keys.h"

#include "commands/shared/slot.h"
#include "config/host_command.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstdio>
#include <cstring>
#include <initializer_list>

namespace {

constexpr IndexRefusal SHOW_REFUSAL{
    .wrong_count = WEP_KEY_OUT_OF_RANGE,
    .out_of_range = WEP_KEY_OUT_OF_RANGE,
};

std::optional<int> default_key() {
    return cfg_read_number("/wlan/inf:1/defkey");
}

struct SlotCopy {
    const char *leaf;
    const char *value;
};

// Updates the copies in the slots that use the key. Refused at a slot that cannot be read.
int write_slot_copies(int index, std::initializer_list<SlotCopy> copies) {
    for (int slot = 1; slot <= SLOT_COUNT; ++slot) {
        const std::optional<int> used =
            cfg_read_number("/wlan/inf:1/multi/index:%d/wep_key_index", slot);
        if (!used)
            return CLI_REFUSED;
        if (*used != index)
            continue;
        for (const SlotCopy &copy : copies)
            cfg_set(copy.value, "/wlan/inf:1/multi/index:%d/%s", slot, copy.leaf);
    }
    return CLI_DONE;
}

// The number of characters of a key of `keylength` bits, of which 24 are not secret; negative for
// an unset length.
std::int64_t key_characters(int keylength, int format) {
    const std::int64_t secret_bits = std::int64_t{keylength} - 24;
    return secret_bits / (format == FORMAT_ASCII ? 8 : 4);
}

// The message for an invalid key; null for a valid one.
const char *key_fault(const char *key, int keylength, int format) {
    const bool known_format = format == FORMAT_ASCII || format == FORMAT_HEXADECIMAL;
    const auto length = static_cast<std::int64_t>(std::strlen(key));
    if (!known_format || length != key_characters(keylength, format))
        return "Key length error.\nERROR: Unable to set wep key value.\n";
    if (format == FORMAT_HEXADECIMAL && key[std::strspn(key, "0123456789abcdefABCDEF")] != '\0')
        return "Please type the correct key string(0 - 9, a - f, A - F).\n";
    return nullptr;
}

void show_key_node(ValueBuffer &value, const char *parent, const char *leaf, const char *equals) {
    // The older name of the nodes. Deliberate.
    cfg_get(value, "/wireless/%s%s", parent, leaf);
    cli_printf("/wireless/%s%s%s%s\n", parent, leaf, equals, value.text());
}

} // namespace

const char *key_format_name(int format) {
    if (format == FORMAT_ASCII)
        return "Ascii Text";
    return format == FORMAT_HEXADECIMAL ? "Hexadecimal" : nullptr;
}

int set_key(CliContext &cli, const char *, CliCommand *) {
    const int index = take_index_number(cli, 2, WEP_KEY_COUNT,
                                        {.out_of_range = WEP_KEY_OUT_OF_RANGE,
                                         .error_line = "ERROR: Unable to set wep key value.\n"});
    if (index == 0)
        return CLI_REFUSED;
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    if (cfg_get(value, "/wlan/inf:1/wepkey:%d/keylength", index) != 0)
        return CLI_REFUSED;
    const int keylength = value.number();
    if (cfg_get(value, "/wlan/inf:1/wepkey:%d/keyformat", index) != 0)
        return CLI_REFUSED;
    const int format = value.number();

    const char *key = arg_next(cli);
    if (const char *fault = key_fault(key, keylength, format))
        return refuse("%s", fault);
    cfg_set(key, "/wlan/inf:1/wepkey:%d", index);
    // An ASCII key restarts nothing. Deliberate.
    if (format == FORMAT_HEXADECIMAL)
        mark_for_apply(APPLY_WLAN);
    return write_slot_copies(index, {{"wep_key", key}});
}

int delete_key(CliContext &cli, const char *, CliCommand *) {
    const int index = take_index_number(cli, 1, WEP_KEY_COUNT,
                                        {.out_of_range = WEP_KEY_OUT_OF_RANGE,
                                         .error_line = "ERROR: Unable to delete wep key value.\n",
                                         .not_a_number = WEP_KEY_OUT_OF_RANGE});
    if (index == 0)
        return CLI_REFUSED;
    cfg_set("", "/wlan/inf:1/wepkey:%d", index);
    cfg_set("2", "/wlan/inf:1/wepkey:%d/keyformat", index);
    cfg_set("64", "/wlan/inf:1/wepkey:%d/keylength", index);
    mark_for_apply(APPLY_WLAN);
    const std::optional<int> in_use = default_key();
    if (!in_use)
        return CLI_REFUSED;
    if (*in_use == index) {
        cfg_set("2", "/wlan/inf:1/keyformat");
        cfg_set("64", "/wlan/inf:1/keylength");
    }
    return write_slot_copies(index,
                             {{"wep_key", ""}, {"wep_keyformat", "2"}, {"wep_keylength", "64"}});
}

int change_key_attribute(CliContext &cli, const KeyAttribute &attribute, const char *value) {
    if (!is_only_word_in(cli, 1, WEP_KEY_COUNT))
        return refuse("%sERROR: Unable to set individual wep key format.\n", attribute.wrong_input);
    const int index = decimal_value(arg_next(cli));
    ValueBuffer current;
    if (!current)
        return refuse(MEMORY_ERROR);
    if (cfg_get(current, "/wlan/inf:1/wepkey:%d/%s", index, attribute.leaf) != 0)
        return CLI_REFUSED;
    if (current.number() == decimal_value(value))
        return CLI_DONE;
    cfg_set("", "/wlan/inf:1/wepkey:%d", index);
    mark_for_apply(APPLY_WLAN);
    const std::optional<int> in_use = default_key();
    if (!in_use)
        return CLI_REFUSED;
    if (*in_use == index)
        cfg_set(value, "/wlan/inf:1/%s", attribute.leaf);
    cli_printf("NOTICE: encryption keys %d is reset.\n", index);
    cfg_set(value, "/wlan/inf:1/wepkey:%d/%s", index, attribute.leaf);
    return write_slot_copies(index, {{"wep_key", ""}, {attribute.slot_leaf, value}});
}

int set_default_key(CliContext &cli, const char *, CliCommand *) {
    const int index = take_index_number(cli, 1, WEP_KEY_COUNT,
                                        {.wrong_count = WEP_KEY_OUT_OF_RANGE,
                                         .out_of_range = WEP_KEY_OUT_OF_RANGE,
                                         .error_line = "ERROR: Unable to set default key index.\n",
                                         .not_a_number = WEP_KEY_OUT_OF_RANGE});
    if (index == 0)
        return CLI_REFUSED;
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    cfg_set_number(index, "/wlan/inf:1/defkey");
    mark_for_apply(APPLY_WLAN);
    for (const KeyAttribute &attribute : {KEY_FORMAT, KEY_LENGTH}) {
        if (cfg_get(value, "/wlan/inf:1/wepkey:%d/%s", index, attribute.leaf) != 0)
            return CLI_REFUSED;
        cfg_set(value.text(), "/wlan/inf:1/%s", attribute.leaf);
    }
    return CLI_DONE;
}

int get_key(CliContext &cli, const char *, CliCommand *) {
    const int index = take_index(cli, 1, WEP_KEY_COUNT, SHOW_REFUSAL).number;
    if (index != 0)
        run_command("rgdb -g /wlan/inf:%d/wepkey:%d", interface_number(cli), index);
    return CLI_DONE;
}

int get_key_length(CliContext &cli, const char *, CliCommand *) {
    const int index = take_index(cli, 1, WEP_KEY_COUNT, SHOW_REFUSAL).number;
    if (index != 0)
        run_command("rgdb -g /wlan/inf:1/wepkey:%d/keylength", index);
    return CLI_DONE;
}

int get_key_format(CliContext &cli, const char *, CliCommand *) {
    const int index = take_index(cli, 1, WEP_KEY_COUNT, SHOW_REFUSAL).number;
    if (index == 0)
        return CLI_DONE;
    const int format = cfg_number("/wlan/inf:1/wepkey:%d/keyformat", index);
    if (const char *name = key_format_name(format))
        cli_printf("%s\n", name);
    return CLI_DONE;
}

int get_all_keys(CliContext &, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    show_key_node(value, "", "defkey", "= ");
    show_key_node(value, "", "keyformat", " = ");
    show_key_node(value, "", "keylength", " = ");
    char parent[32];
    for (int index = 1; index <= WEP_KEY_COUNT; ++index) {
        std::snprintf(parent, sizeof parent, "wepkey:%d", index);
        for (const char *leaf : {"", "/keyformat", "/keylength"})
            show_key_node(value, parent, leaf, " = ");
    }
    for (int slot = 1; slot <= SLOT_COUNT; ++slot) {
        std::snprintf(parent, sizeof parent, "multi/index:%d/", slot);
        show_key_node(value, parent, "wep_key_index", "= ");
        for (const char *leaf : {"wep_key", "wep_keyformat", "wep_keylength"})
            show_key_node(value, parent, leaf, " = ");
    }
    return CLI_DONE;
}
