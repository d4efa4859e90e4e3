#include "commands/time.h"

#include "commands/shared/address.h"
#include "config/apply.h"
#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>

namespace {

constexpr int LAST_TIME_ZONE = 75;

// A field of std::tm, which counts from `base`; saturates.
int calendar_field(const char *word, int base) {
    if (word == nullptr)
        return 0;
    return static_cast<int>(std::max<long long>(decimal_value(word) - 0LL - base, INT_MIN));
}

// False, with errno set, when the clock cannot be set.
bool set_clock(const CalendarWords &words) {
    timespec now{};
    if (calendar_seconds(words, now.tv_sec))
        return clock_settime(CLOCK_REALTIME, &now) == 0;
    errno = EINVAL;
    return false;
}

void restart_time_service() {
    run_command("sh /etc/templates/timezones.sh");
    run_command("sh /etc/templates/ntp.sh start");
}

void use_time_server(bool use) {
    cfg_set(use ? "2" : "0", "/time/syncwith");
    cli_printf("Set SNTP Server to %s!\n", capital_enable_word(use));
}

void set_time_server_address(const char *address) {
    cfg_set(address, "/time/ntpserver/ip");
    save_configuration();
    restart_time_service();
    cli_printf("\nSet SNTP Server IP successfully!\n");
}

int show_text_or_none(const char *path, const char *label) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    cfg_get_plain(value, path);
    cli_printf("%s: %s\n", label, value.empty() ? "none" : value.text());
    return CLI_DONE;
}

} // namespace

bool calendar_seconds(const CalendarWords &words, std::time_t &seconds) {
    std::tm date{};
    date.tm_year = calendar_field(words[0], 1900);
    date.tm_mon = calendar_field(words[1], 1);
    date.tm_mday = calendar_field(words[2], 0);
    date.tm_hour = calendar_field(words[3], 0);
    date.tm_min = calendar_field(words[4], 0);
    date.tm_sec = calendar_field(words[5], 0);
    seconds = std::mktime(&date);
    // Refuses the last second before the epoch, too, to which no clock is set.
    return seconds != -1;
}

int set_time(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) == 0)
        return refuse("Set time (year month day hour min sec)\n");
    CalendarWords words{};
    for (const char *&word : words)
        word = arg_next(cli);
    if (!set_clock(words)) {
        flush_output();
        std::perror("set time");
    }
    return CLI_DONE;
}

int get_time(CliContext &, const char *, CliCommand *) {
    static constexpr char WEEKDAYS[][4] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    const std::time_t seconds = std::time(nullptr);
    std::tm now{};
    tzset(); // localtime_r alone would keep the zone of its first call
    localtime_r(&seconds, &now);
    cli_printf("%s %d:%d:%d ", WEEKDAYS[now.tm_wday], now.tm_hour, now.tm_min, now.tm_sec);
    cli_printf("%d/%d/%d\n", now.tm_mon + 1, now.tm_mday, now.tm_year + 1900);
    return CLI_DONE;
}

int get_uptime(CliContext &, const char *, CliCommand *) {
    const int uptime = cfg_number("/runtime/sys/uptime");
    cli_printf("AP Uptime -- Day %d, %2d:%02d:%02d\n", uptime / 86400, uptime / 3600 % 24,
               uptime / 60 % 60, uptime % 60);
    return CLI_DONE;
}

int set_time_server(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1) {
        print_lines({"set sntpserver enable", "set sntpserver disable", "set sntpserver x.x.x.x"});
        return CLI_REFUSED;
    }
    const char *word = arg_next(cli);
    if (std::strcmp(word, "enable") == 0)
        use_time_server(true);
    else if (std::strcmp(word, "disable") == 0)
        use_time_server(false);
    else if (is_address(word))
        set_time_server_address(word);
    else
        return refuse("Please input correct IP address!\n");
    return mark_for_apply(APPLY_WAN);
}

int get_time_server(CliContext &, const char *, CliCommand *) {
    return show_text_or_none("/time/ntpserver/ip", "SNTP Server IP");
}

int set_time_zone(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("set tzone x (1~75) \n");
    const char *zone = arg_next(cli);
    if (in_range(zone, 1, LAST_TIME_ZONE) == 0) {
        cli_printf("Wrong number!!\n set tzone x (1~75) \n");
        return CLI_DONE;
    }
    if (cfg_set(zone, "/time/timezone") != 0) {
        cli_printf("\nUnable to set time zone!\n");
        return CLI_DONE;
    }
    save_configuration();
    cli_printf("\nSet time zone successfully!\n");
    restart_time_service();
    return mark_for_apply(APPLY_WAN);
}

int get_time_zone(CliContext &, const char *, CliCommand *) {
    return show_text_or_none("/time/timezone", "SNTP/NTP Time Zone");
}

int set_daylight_saving(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("set daylightsaving 0/1\n");
    if (cfg_set(arg_next(cli), "/time/daylightsaving") == 0) {
        save_configuration();
        cli_printf("\nSet Daylight Saving Time successfully!\n");
        restart_time_service();
    } else {
        cli_printf("\nUnable to Daylight Saving Time!\n");
    }
    return mark_for_apply(APPLY_WAN); // even after a failure, unlike for the time zone
}

int get_daylight_saving(CliContext &, const char *, CliCommand *) {
    const bool on = cfg_number("/time/daylightsaving") == 1;
    cli_printf("Daylight Saving Time is %s.\n", on ? "Enabled" : "Disabled");
    return CLI_DONE;
}
