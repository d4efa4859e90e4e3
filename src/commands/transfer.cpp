#include "commands/transfer.h"

#include "commands/shared/rows.h"
#include "config/unique_fd.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstdio>
#include <fcntl.h>
#include <string_view>

namespace {

// The limit of a tool's output.
constexpr std::size_t OUTPUT_LIMIT = 255;
using ToolOutput = ShortValue<OUTPUT_LIMIT>;

using TftpCommand = CommandFormat<ShellWord, CommandValue>;                      // file, host
using FtpCommand = CommandFormat<ShellWord, ShellWord, CommandValue, ShellWord>; // account first

// Takes the word for the host and puts its address into `text`. A bad one is reported, with `usage`
// unless that is null, and becomes "(null)" in the command line. Deliberate.
CommandValue take_host(CliContext &cli, Ipv4Text &text, const char *usage) {
    std::uint32_t address = 0;
    if (arg_ipv4(cli, address) == 0) {
        cli_printf("Invalid host address!!\n");
        if (usage != nullptr)
            print_lines({usage});
        return ProgramText("(null)");
    }
    text = ipv4_text(address);
    return ShellWord(text.data());
}

int run_tftp(CliContext &cli, const char *usage, const char *host_usage, TftpCommand command) {
    if (arg_count(cli) != 2)
        return refuse("%s\n", usage);
    const ShellWord file(arg_next(cli));
    Ipv4Text host_text{};
    const CommandValue host = take_host(cli, host_text, host_usage);
    return show_answer<"%s", OUTPUT_LIMIT>(command, file, host);
}

int run_ftp(CliContext &cli, const char *usage, FtpCommand command) {
    if (arg_count(cli) != 4)
        return refuse("%s\n", usage);
    const ShellWord file(arg_next(cli));
    Ipv4Text host_text{};
    const CommandValue host = take_host(cli, host_text, usage);
    const ShellWord user(arg_next(cli));
    const ShellWord password(arg_next(cli));
    return show_answer<"%s", OUTPUT_LIMIT>(command, user, password, host, file);
}

// True when a path has a ".." component.
bool leads_upwards(std::string_view name) {
    while (true) {
        const std::size_t end = name.find('/');
        if (name.substr(0, end) == "..")
            return true;
        if (end == std::string_view::npos)
            return false;
        name.remove_prefix(end + 1);
    }
}

int refuse_file_name() {
    return refuse("Invalid file name!!\n");
}

void remove_from_tmp(ShellWord file) {
    ToolOutput unseen;
    cmd_capture(unseen, "rm /tmp/%s -f", file);
}

// What is wrong with the fetched file; null when it can be loaded.
const char *check_fetched_file(const char *name) {
    char path[CliContext::WORD_BUFFER_SIZE + sizeof "/tmp/"];
    std::snprintf(path, sizeof path, "/tmp/%s", name);
    const UniqueFd file(open(path, O_RDONLY | O_CLOEXEC));
    if (!file)
        return "open file error";
    return lseek(file.get(), 0, SEEK_END) > 0 ? nullptr : "file length is zero";
}

} // namespace

int tftp_get_config(CliContext &cli, const char *, CliCommand *) {
    // The only one that does not print its usage after a bad host. Deliberate.
    return run_tftp(cli, "tftp getconfig [config file name] [host IP Address]", nullptr,
                    "tftp -d -r %s %s ");
}

int tftp_get_firmware(CliContext &cli, const char *, CliCommand *) {
    static constexpr char USAGE[] = "tftp getfirmware [firmware file name] [host IP Address]";
    return run_tftp(cli, USAGE, USAGE, "tftp -f -r %s %s ");
}

int tftp_put_config(CliContext &cli, const char *, CliCommand *) {
    static constexpr char USAGE[] = "tftp putconfig [config file name] [host IP Address]";
    return run_tftp(cli, USAGE, USAGE, "tftp -t -r %s %s ");
}

int tftp_put_xml_config(CliContext &cli, const char *, CliCommand *) {
    static constexpr char USAGE[] = "tftp putxmlconfig [config file name] [host IP Address]";
    if (arg_count(cli) != 2)
        return refuse("%s\n", USAGE);
    const ShellWord file(arg_next(cli));
    if (leads_upwards(file.text))
        return refuse_file_name();
    Ipv4Text host_text{};
    const CommandValue host = take_host(cli, host_text, USAGE);
    ToolOutput unseen;
    cmd_capture(unseen, "rgdb -D /tmp/%s ", file);
    cmd_capture(unseen, "tftp -p -r %s -l /tmp/%s %s ", file, file, host);
    remove_from_tmp(file);
    return CLI_DONE;
}

int tftp_get_xml_config(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 2)
        return refuse("tftp getxmlconfig [config file name] [host IP Address]\n");
    const ShellWord file(arg_next(cli));
    if (leads_upwards(file.text))
        return refuse_file_name();
    std::uint32_t address = 0;
    if (arg_ipv4(cli, address) == 0)
        return refuse("Invalid host address!!\n");
    const Ipv4Text host = ipv4_text(address);
    ToolOutput unseen;
    cmd_capture(unseen, "tftp -g -r %s -l /tmp/%s %s ", file, file, ShellWord(host.data()));
    if (const char *fault = check_fetched_file(file.text)) {
        print_lines({fault});
        remove_from_tmp(file);
        return CLI_REFUSED;
    }
    print_lines({"tftp: Update configuraion file successfully!", // spelt so
                 "tftp: Please reboot device!"});
    cmd_capture(unseen, "rgdb -l /tmp/%s", file);
    run_command("submit COMMIT");
    remove_from_tmp(file);
    return CLI_DONE;
}

int ftp_get_config(CliContext &cli, const char *, CliCommand *) {
    return run_ftp(cli, "ftp getconfig [config file name] [host IP Address] [username] [password]",
                   "ftpget -d -u %s -p %s %s %s");
}

int ftp_get_firmware(CliContext &cli, const char *, CliCommand *) {
    return run_ftp(cli,
                   "ftp getfirmware [firmware file name] [host IP Address] [username] [password]",
                   "ftpget -f -u %s -p %s %s %s");
}

int ftp_put_config(CliContext &cli, const char *, CliCommand *) {
    return run_ftp(cli, "ftp putconfig [config file name] [host IP Address] [username] [password]",
                   "ftpput -t -u %s -p %s %s %s");
}
