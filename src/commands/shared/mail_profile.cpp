#include "commands/shared/mail_profile.h"

#include "config/node_access.h"

int read_mail_field(ReadTarget target, int profile, const char *field) {
    return cfg_get(target, "/sys/log/smtp/index:%d/%s", profile, field);
}

int write_mail_field(int profile, const char *field, const char *value) {
    return cfg_set(value, "/sys/log/smtp/index:%d/%s", profile, field);
}

void reset_first_rekey() {
    cfg_set("0", "/rumtime/wlan/inf:1/autorekey/first"); // spelt so by all who use it
}
