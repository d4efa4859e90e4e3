#include "commands/security.h"

#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/output.h"

#include <limits>

namespace {

constexpr char NOTICE_OF_MODE[] =
    "NOTICE: The current Security Type is not supported by this mode.\n";
constexpr char NOTICE_OF_AUTHENTICATION[] =
    "NOTICE: This Authentication Type is not supported by the current mode/cipher type.\n";
constexpr char NOTICE_OF_CIPHER[] =
    "NOTICE: This Cipher Type is not supported by the current mode/authentication type.\n";

struct Combination {
    int authentication = 0;
    int mode = 0;
    int cipher = 0;
    const char *notice = ""; // of its refusal
};

// Reads the settings, and remembers when that failed.
class CurrentSettings {
public:
    explicit operator bool() const { return static_cast<bool>(value_); } // false without memory
    [[nodiscard]] bool failed() const { return failed_; }

    int mode() { return number("/wlan/inf:1/ap_mode"); }
    int authentication() { return number("/wlan/inf:1/authentication"); }
    int cipher() { return number("/wlan/inf:1/wpa/wepmode"); }

private:
    int number(const char *path) {
        failed_ |= cfg_get_plain(value_, path) != 0;
        return value_.number();
    }

    ValueBuffer value_;
    bool failed_ = false;
};

// The combination that the change leads to. The fields stand in the order in which they are read.
Combination combine(CurrentSettings &current, SecurityChange change, int new_value) {
    switch (change) {
    case SecurityChange::Mode:
        return {current.authentication(), new_value, current.cipher(), NOTICE_OF_MODE};
    case SecurityChange::Authentication:
        return {new_value, current.mode(), current.cipher(), NOTICE_OF_AUTHENTICATION};
    case SecurityChange::Cipher:
        return {current.authentication(), current.mode(), new_value, NOTICE_OF_CIPHER};
    }
    return {};
}

// A WPA type goes with every cipher, WEP and none among them. Deliberate.
bool is_supported(const Combination &security) {
    const bool is_client = security.mode == MODE_CLIENT || security.mode == MODE_REPEATER;
    switch (security.authentication) {
    case AUTH_OPEN_SYSTEM:
        return security.cipher == CIPHER_NONE || security.cipher == CIPHER_WEP;
    case AUTH_SHARED_KEY:
        return !is_client && security.cipher == CIPHER_WEP;
    case AUTH_WPA_EAP:
    case AUTH_WPA2_EAP:
    case AUTH_WPA_AUTO_EAP:
        return !is_client;
    case AUTH_DYNAMIC_WEP:
        return security.cipher == CIPHER_WEP;
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
        return 0;
    cfg_set("0", "/wlan/inf:%d/authentication", interface_number(cli));
    cfg_set("0", "/wlan/inf:%d/wpa/wepmode", interface_number(cli));
    cli_printf("NOTICE: Wireless Security is Disabled. \n");
    return 1;
}

int fix_for_authentication(const CliContext &cli, int authentication) {
    ValueBuffer mode;
    if (!mode) {
        cli_printf(MEMORY_ERROR);
        return 2;
    }
    if (cfg_get(mode, "/wlan/inf:%d/ap_mode", interface_number(cli)) != 0)
        return SECURITY_UNKNOWN;
    const CipherFix *fix = find_fix(authentication, mode.number());
    if (fix == nullptr)
        return 0;
    cfg_set(fix->cipher, "/wlan/inf:%d/wpa/wepmode", interface_number(cli));
    cli_printf("NOTICE: Set Cipher to %s. \n", fix->name);
    return 1;
}

const char *line_of(const SecurityType *type) {
    return type != nullptr ? type->line : "";
}

} // namespace

int security_check(SecurityChange change, int value) {
    CurrentSettings current;
    if (!current) {
        cli_printf(MEMORY_ERROR);
        return 2;
    }
    const Combination security = combine(current, change, value);
    if (current.failed())
        return SECURITY_UNKNOWN;
    if (is_supported(security))
        return 0;
    cli_printf("%s", security.notice);
    return 1;
}

int security_fixup(const CliContext &cli, SecurityChange change, int value) {
    switch (change) {
    case SecurityChange::Mode:
        return fix_for_mode(cli, value);
    case SecurityChange::Authentication:
        return fix_for_authentication(cli, value);
    default:
        return 0;
    }
}

const char *authentication_line(int type) {
    return line_of(find_type(AUTHENTICATION_TYPES, type));
}

const char *cipher_line(int cipher) {
    return line_of(find_type(CIPHERS, cipher));
}

// The tool's writes bypass the array's bookkeeping, unlike the fix-up's. Deliberate.

int set_authentication(CliContext &cli, const char *, CliCommand *) {
    const int type = item_of_current_row(AUTHENTICATION_TYPES, authentication_rows).value;
    int outcome = security_check(SecurityChange::Authentication, type);
    if (outcome > 0) {
        outcome = security_fixup(cli, SecurityChange::Authentication, type);
        // Only a fix-up that found no way stops here; one that ran out of memory does not.
        // Deliberate.
        if (outcome == 0)
            return CLI_DONE;
    }
    if (outcome == SECURITY_UNKNOWN)
        return CLI_REFUSED;
    run_command("rgdb -s /wlan/inf:%d/authentication %d", interface_number(cli), type);
    return mark_for_apply(APPLY_WLAN);
}

int set_cipher(CliContext &cli, const char *, CliCommand *) {
    const int cipher = item_of_current_row(CIPHERS, cipher_rows).value;
    if (const int check = security_check(SecurityChange::Cipher, cipher); check != 0)
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
