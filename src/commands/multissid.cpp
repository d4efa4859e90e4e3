#include "commands/multissid.h"

#include "commands/shared/wireless_numbers.h"
#include "shell/output.h"

#include <iterator>

namespace {

constexpr IndexRefusal AUTHENTICATION_REFUSAL{
    .wrong_count = "Wrong input parameters. Please input Authentication Type and specify the "
                   "correct Multi-SSID index (1-3).\n",
    .out_of_range = SLOT_REFUSAL.out_of_range,
};
constexpr IndexRefusal CIPHER_REFUSAL{
    .wrong_count = "Wrong input parameters. Please input Cipher Type and specify the correct "
                   "Multi-SSID index (1-3).\n",
    .out_of_range = SLOT_REFUSAL.out_of_range,
};

bool is_wpa(int authentication) {
    return authentication >= AUTH_WPA_EAP && authentication <= AUTH_WPA_AUTO_PSK;
}

int slot_number(ValueBuffer &value, const CliContext &cli, const LineIndex &slot,
                const char *leaf) {
    read_slot(value, cli, slot, leaf);
    return value.number();
}

void confirm_cipher(const LineIndex &slot, const char *name) {
    cli_printf("Cipher of Multi-SSID (index %d) is %s\n", slot.number, name);
}

} // namespace

const char *slot_cipher_name(int cipher) {
    const auto index = static_cast<std::size_t>(cipher);
    return index < std::size(SLOT_CIPHERS) ? SLOT_CIPHERS[index].name : "error";
}

int enable_multi_ssid(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    if (cfg_get(value, "/wlan/inf:%d/ap_mode", interface_number(cli)) != 0)
        return CLI_REFUSED;
    const int mode = value.number();
    cfg_set("1", "/wlan/inf:%d/multi/state", interface_number(cli));
    if (mode != MODE_AP && mode != MODE_WDS_AP && mode != MODE_WDS) {
        cfg_set_number(MODE_AP, "/wlan/inf:%d/ap_mode", interface_number(cli));
        cli_printf("Set AP mode as normal AP mode \n");
    }
    return mark_for_apply(APPLY_WLAN);
}

int set_slot_authentication(CliContext &cli, const char *, CliCommand *) {
    const SlotAuthentication &type =
        item_of_current_row(SLOT_AUTHENTICATIONS, multi_authentication_rows);
    const LineIndex slot = take_index(cli, 1, SLOT_COUNT, AUTHENTICATION_REFUSAL);
    if (!slot)
        return CLI_DONE;
    write_slot(DecimalText().of(type.value), cli, slot, "/auth");
    cli_printf("Authentication of Multi-SSID (index %d) is %s\n", slot.number, type.confirmed);
    return mark_for_apply(APPLY_WLAN);
}

int set_slot_cipher(CliContext &cli, const char *, CliCommand *) {
    const SlotCipher &cipher = item_of_current_row(SLOT_CIPHERS, multi_cipher_rows);
    const LineIndex slot = take_index(cli, 1, SLOT_COUNT, CIPHER_REFUSAL);
    if (!slot)
        return CLI_DONE;
    ValueBuffer value;
    if (!value)
        return refuse(CANT_ALLOC_MEMORY);
    if (read_slot(value, cli, slot, "/auth") != 0)
        return CLI_REFUSED;
    const int authentication = value.number();
    if (is_wpa(authentication) == cipher.for_wpa) {
        write_slot(DecimalText().of(cipher.value), cli, slot, "/cipher");
        confirm_cipher(slot, cipher.confirmed);
    } else {
        cli_printf("This cipher selection is not supported by \n%s",
                   authentication_line(authentication));
    }
    return mark_for_apply(APPLY_WLAN); // also after a refusal. Deliberate.
}

int set_slot_cipher_none(CliContext &cli, const char *, CliCommand *) {
    const LineIndex slot = take_index(cli, 1, SLOT_COUNT, CIPHER_REFUSAL);
    if (!slot)
        return CLI_DONE;
    write_slot("0", cli, slot, "/cipher");
    write_slot("0", cli, slot, "/auth");
    confirm_cipher(slot, "None");
    cli_printf("NOTICE: Authentication Type is set to Open-System\n");
    return mark_for_apply(APPLY_WLAN);
}

int get_priority(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(" can't alloc memory.\n");
    cfg_get(value, "/wlan/inf:%d/pri_bit", interface_number(cli));
    cli_printf("Priority of primary SSID is %d\n", value.number());
    return CLI_DONE;
}

int get_slot_wep_key(CliContext &cli, const char *, CliCommand *) {
    const LineIndex slot = take_index(cli, 1, SLOT_COUNT, SLOT_REFUSAL);
    if (!slot)
        return CLI_DONE;
    ValueBuffer value;
    if (!value)
        return refuse(CANT_ALLOC_MEMORY);
    const int key = slot_number(value, cli, slot, "/wep_key_index");
    const bool used = slot_number(value, cli, slot, "/cipher") != CIPHER_NONE;
    cfg_get(value, "/wlan/inf:%d/wepkey:%d", interface_number(cli), key);
    const int format = cfg_number("/wlan/inf:%d/wepkey:%d/keyformat", interface_number(cli), key);
    const int length = cfg_number("/wlan/inf:%d/wepkey:%d/keylength", interface_number(cli), key);

    const auto show = [&](const char *subject, const char *text) {
        cli_printf("%s of Multi-SSID (index %d) is %s\n", subject, slot.number, used ? text : "");
    };
    DecimalText number;
    show("Default WEP Key Index", number.of(key));
    show("WEP Key Length", number.of(length));
    const char *method = key_format_name(format);
    show("WEP Key Entry Method", method != nullptr ? method : "error");
    show("WEP Key", value.text());
    return CLI_DONE;
}
