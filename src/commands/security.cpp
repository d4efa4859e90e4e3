#include "commands/security.h"

#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/output.h"

#include <limits>

namespace {

const char *refusal_notice(SecurityChange change) {
    switch (change) {
    case SecurityChange::Mode:
        return "NOTICE: The current Security Type is not supported by this mode.\n";
    case SecurityChange::Authentication:
        return "NOTICE: This Authentication Type is not supported by the current mode/cipher "
               "type.\n";
    case SecurityChange::Cipher:
        return "NOTICE: This Cipher Type is not supported by the current mode/authentication "
               "type.\n";
    }
    return "";
}

// A WPA type goes with every cipher, even WEP and none. Deliberate.
bool is_supported(int mode, int authentication, int cipher) {
    const bool is_client = mode == MODE_CLIENT || mode == MODE_REPEATER;
    switch (authentication) {
    case AUTH_OPEN_SYSTEM:
        return cipher == CIPHER_NONE || cipher == CIPHER_WEP;
    case AUTH_SHARED_KEY:
        return !is_client && cipher == CIPHER_WEP;
    case AUTH_WPA_EAP:
    case AUTH_WPA2_EAP:
    case AUTH_WPA_AUTO_EAP:
        return !is_client;
    case AUTH_DYNAMIC_WEP:
        return cipher == CIPHER_WEP;
    default:
        return true;
    }
}

constexpr int LOWEST_MODE = std::numeric_limits<int>::min();
constexpr int HIGHEST_MODE = std::numeric_limits<int>::max();

// The cipher that an authentication type gets in some modes.
struct CipherFix {
    int authentication;
    int first_mode;
    int last_mode;
    char cipher[2];
    char name[19];
};

constexpr CipherFix CIPHER_FIXES[] = {
    {AUTH_OPEN_SYSTEM, LOWEST_MODE, HIGHEST_MODE, "0", "None"},
    {AUTH_SHARED_KEY, MODE_AP, MODE_AP, "1", "WEP"},
    {AUTH_SHARED_KEY, MODE_WDS_AP, MODE_WDS_AP, "1", "WEP"},
    {AUTH_WPA_EAP, MODE_AP, MODE_AP, "2", "TKIP"},
    {AUTH_WPA2_EAP, MODE_AP, MODE_AP, "2", "TKIP"},
    {AUTH_WPA_AUTO_EAP, MODE_AP, MODE_AP, "2", "TKIP"},
    {AUTH_WPA_PSK, LOWEST_MODE, MODE_REPEATER, "2", "TKIP"},
    {AUTH_WPA2_PSK, LOWEST_MODE, MODE_REPEATER, "2", "TKIP"},
    {AUTH_WPA_AUTO_PSK, LOWEST_MODE, MODE_REPEATER, "2", "TKIP"},
    {AUTH_WPA2_PSK, MODE_WDS_AP, MODE_WDS_AP, "3", "AES"},
    {AUTH_WPA_AUTO_PSK, MODE_WDS_AP, MODE_WDS_AP, "3", "AES"},
    {AUTH_DYNAMIC_WEP, LOWEST_MODE, MODE_REPEATER, "1", "Dynamic WEP Keying"},
};

const CipherFix *find_fix(int authentication, int mode) {
    for (const CipherFix &fix : CIPHER_FIXES) {
        if (fix.authentication == authentication && fix.first_mode <= mode && mode <= fix.last_mode)
            return &fix;
    }
    return nullptr;
}

int fix_for_mode(const CliContext &cli, int mode) {
    if (mode >= MODE_WDS)
        return SECURITY_NO_FIX;
    cfg_set("0", "/wlan/inf:%d/authentication", interface_number(cli));
    cfg_set("0", "/wlan/inf:%d/wpa/wepmode", interface_number(cli));
    cli_printf("NOTICE: Wireless Security is Disabled. \n");
    return SECURITY_FIXED;
}

int fix_for_authentication(const CliContext &cli, int authentication) {
    ValueBuffer mode;
    if (!mode) {
        cli_printf(MEMORY_ERROR);
        return SECURITY_NO_MEMORY;
    }
    if (cfg_get(mode, "/wlan/inf:%d/ap_mode", interface_number(cli)) != 0)
        return SECURITY_UNKNOWN;
    const CipherFix *fix = find_fix(authentication, mode.number());
    if (fix == nullptr)
        return SECURITY_NO_FIX;
    cfg_set(fix->cipher, "/wlan/inf:%d/wpa/wepmode", interface_number(cli));
    cli_printf("NOTICE: Set Cipher to %s. \n", fix->name);
    return SECURITY_FIXED;
}

const char *line_of(const SecurityType *type) {
    return type != nullptr ? type->line : "";
}

} // namespace

int security_check(SecurityChange change, int value) {
    ValueBuffer text;
    if (!text) {
        cli_printf(MEMORY_ERROR);
        return SECURITY_NO_MEMORY;
    }
    bool failed = false;
    const auto setting = [&](SecurityChange kind, const char *path) {
        if (kind == change)
            return value;
        failed |= cfg_get_plain(text, path) != 0;
        return text.number();
    };
    const int authentication =
        setting(SecurityChange::Authentication, "/wlan/inf:1/authentication");
    const int mode = setting(SecurityChange::Mode, "/wlan/inf:1/ap_mode");
    const int cipher = setting(SecurityChange::Cipher, "/wlan/inf:1/wpa/wepmode");
    if (failed)
        return SECURITY_UNKNOWN;
    if (is_supported(mode, authentication, cipher))
        return SECURITY_SUPPORTED;
    cli_printf("%s", refusal_notice(change));
    return SECURITY_UNSUPPORTED;
}

int security_fixup(const CliContext &cli, SecurityChange change, int value) {
    if (change == SecurityChange::Mode)
        return fix_for_mode(cli, value);
    return change == SecurityChange::Authentication ? fix_for_authentication(cli, value)
                                                    : SECURITY_NO_FIX;
}

const char *authentication_line(int type) {
    return line_of(find_type(AUTHENTICATION_TYPES, type));
}

const char *cipher_line(int cipher) {
    return line_of(find_type(CIPHERS, cipher));
}

// Written by the tool, which bypasses the array's bookkeeping, unlike the fix-up. Deliberate.

int set_authentication(CliContext &cli, const char *, CliCommand *) {
    const int type = item_of_current_row(AUTHENTICATION_TYPES, authentication_rows).value;
    const int check = security_check(SecurityChange::Authentication, type);
    if (check == SECURITY_UNKNOWN)
        return CLI_REFUSED;
    if (check != SECURITY_SUPPORTED) {
        const int fix = security_fixup(cli, SecurityChange::Authentication, type);
        if (fix == SECURITY_UNKNOWN)
            return CLI_REFUSED;
        // Continues after a fix-up that ran out of memory. Deliberate.
        if (fix == SECURITY_NO_FIX)
            return CLI_DONE;
    }
    run_command("rgdb -s /wlan/inf:%d/authentication %d", interface_number(cli), type);
    return mark_for_apply(APPLY_WLAN);
}

int set_cipher(CliContext &cli, const char *, CliCommand *) {
    const int cipher = item_of_current_row(CIPHERS, cipher_rows).value;
    const int check = security_check(SecurityChange::Cipher, cipher);
    if (check != SECURITY_SUPPORTED)
        return check == SECURITY_UNKNOWN ? CLI_REFUSED : CLI_DONE;
    run_command("rgdb -s /wlan/inf:%d/wpa/wepmode %d", interface_number(cli), cipher);
    return mark_for_apply(APPLY_WLAN);
}

int set_cipher_none(CliContext &cli, const char *, CliCommand *) {
    run_command("rgdb -s /wlan/inf:%d/wpa/wepmode 0", interface_number(cli));
    run_command("rgdb -s /wlan/inf:%d/authentication 0", interface_number(cli));
    cli_printf("NOTICE: Disable Wireless Security (not recommended). \n");
    return mark_for_apply(APPLY_WLAN);
}
