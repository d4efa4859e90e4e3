#include "commands/mfc.h"

#include "shell/args.h"
#include "shell/output.h"

namespace {

// Runs a command line of the tool and prints its answer as a line.
template <class... Values>
int print_answer(CommandFormat<std::type_identity_t<Values>...> command, const Values &...values) {
    return show_answer<"%s\n", 1023>(command, values...);
}

// The n-th word, which must exist.
ShellWord word_at(const CliContext &cli, int n) {
    return ShellWord(arg_peek(cli, n));
}

int test_radio(CliContext &cli, CommandFormat<ShellWord, ShellWord> command, const char *usage) {
    if (arg_count(cli) != 2)
        return refuse("%s\n", usage);
    return print_answer(command, word_at(cli, 0), word_at(cli, 1));
}

// Prints the usage when there is no word; several words are refused silently. Deliberate.
int refuse_word_count(const CliContext &cli, const char *usage) {
    if (arg_count(cli) == 0)
        print_lines({usage});
    return CLI_REFUSED;
}

} // namespace

int mfc_init(CliContext &cli, const char *, CliCommand *) {
    // The usage names five items; four are taken. Deliberate.
    if (arg_count(cli) != 4)
        return refuse("mfc init <lanmac> XX:XX:XX:XX:XX:XX <hwrev> <countrycode> <pin> \n");
    MacText mac;
    if (arg_mac(cli, mac) == 0)
        return refuse("error macaddradd!\n");
    return print_answer("mfc init %s %s %s %s ", word_at(cli, 0), word_at(cli, 1), word_at(cli, 2),
                        word_at(cli, 3));
}

// The usage lines name the bands differently from the tool. Deliberate.
int mfc_test_5g(CliContext &cli, const char *, CliCommand *) {
    return test_radio(cli, "mfc wlan_5 %s %s", "mfc wlan_a <ssid> <channel> ");
}

int mfc_test_24g(CliContext &cli, const char *, CliCommand *) {
    return test_radio(cli, "mfc wlan_24 %s %s  ", "mfc wlan_g <ssid> <channel> ");
}

int mfc_set_country_code(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("mfc setcountrycode <countrycode> \n");
    const ShellWord code = word_at(cli, 0);
    cli_printf("countrycode =%s \n", code.text);
    return print_answer("mfc setcountrycode %s", code);
}

int mfc_reset(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) == 1)
        return print_answer("mfc freset %s", word_at(cli, 0));
    return print_answer("mfc freset");
}

int mfc_button(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) == 1)
        return print_answer("mfc button %s", word_at(cli, 0));
    print_lines({"mfc button {reset}"});
    return CLI_DONE;
}

int mfc_led(CliContext &cli, const char *, CliCommand *) {
    return arg_count(cli) == 1 ? print_answer("mfc led %s", word_at(cli, 0)) : CLI_DONE;
}

int set_mac_address(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse_word_count(cli, "set mac xx:xx:xx:xx:xx:xx!");
    const ShellWord mac = word_at(cli, 0);
    show_answer<"%s", 255>("mfc setwanmac %s", mac);
    return show_answer<"%s\n", 255>("mfc setlanmac %s", mac);
}

int set_hardware_revision(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse_word_count(cli, "set hwrev <version>!");
    return show_answer<"%s\n", 255>("mfc sethwrev %s", word_at(cli, 0));
}
