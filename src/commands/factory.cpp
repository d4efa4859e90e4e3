#include "commands/factory.h"

#include "config/host_command.h"
#include "config/node_access.h"
#include "config/unique_fd.h"
#include "shell/output.h"

#include <cstring>
#include <fcntl.h>

namespace {

constexpr char CONFIG_FILE[] = "/var/config.bin";

// How much of a saved configuration is read.
constexpr std::size_t CONFIG_LIMIT = 10240;

// A saved configuration begins with a header that differs between saves.
constexpr std::size_t HEADER_SIZE = 100;

// The file is written without the signature and its separator, but its length is two bytes more
// than what is left; these bytes are zeros. Deliberate.
constexpr std::size_t EXCESS_SIZE = 2;

// Decimal, so 1204 in octal. Deliberate.
constexpr mode_t CONFIG_MODE = 644;

// A configuration saved by the system tool.
class SavedConfig {
public:
    explicit operator bool() const { return static_cast<bool>(bytes_); }

    // False when the file cannot be opened.
    bool read_file() {
        const UniqueFd file(open(CONFIG_FILE, O_RDONLY | O_CLOEXEC));
        if (!file)
            return false;
        ssize_t got = 0;
        while ((got = read(file.get(), bytes_.data() + length_, CONFIG_LIMIT - length_)) > 0)
            length_ += static_cast<std::size_t>(got);
        return true;
    }

    // Writes the file without a signature of `signature_length` bytes. False when nothing was
    // written.
    [[nodiscard]] bool write_file(std::size_t signature_length) const {
        const UniqueFd file(
            open(CONFIG_FILE, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, CONFIG_MODE));
        const std::size_t skipped = signature_length + 1;
        const std::size_t end = length_ + EXCESS_SIZE;
        return file && end > skipped &&
               write(file.get(), bytes_.text() + skipped, end - skipped) > 0;
    }

    [[nodiscard]] int length() const { return static_cast<int>(length_); }

    // Compares two configurations of the same length, without their headers.
    [[nodiscard]] bool has_settings_of(const SavedConfig &other) const {
        return length_ <= HEADER_SIZE ||
               std::memcmp(bytes_.text() + HEADER_SIZE, other.bytes_.text() + HEADER_SIZE,
                           length_ - HEADER_SIZE) == 0;
    }

private:
    ValueBuffer bytes_{CONFIG_LIMIT + EXCESS_SIZE};
    std::size_t length_ = 0;
};

void save_to_file() {
    run_command("/usr/sbin/sys -s configsave");
}

void remove_file() {
    run_command("rm -f /var/config.bin");
}

// Restores the running settings, which were set aside.
void restore_settings() {
    remove_file();
    run_command("mv /var/config2.bin /var/config.bin");
    run_command("/etc/scripts/misc/profile.sh reset /var/config.bin");
    save_configuration();
    remove_file();
}

// Writes the running settings to the file in the form that can be loaded.
void write_loadable(const SavedConfig &current) {
    ShortValue<50> signature;
    cfg_get(signature, "/runtime/layout/image_sign");
    if (current.write_file(std::strlen(signature.text())))
        return;
    remove_file();
    cli_printf("Can't write configuration file\n");
}

void print_verdict(const SavedConfig &current, const SavedConfig &factory) {
    if (current.length() != factory.length()) {
        cli_printf("Current_config_len0=%d, Default_config_len=%d \n", current.length(),
                   factory.length());
        cli_printf("IsFactoryDefault: NO.\n");
    } else if (current.has_settings_of(factory)) {
        cli_printf("IsFactoryDefault: Yes.\n");
    } else {
        cli_printf("IsFactoryDefault: NO. (1)\n");
    }
}

} // namespace

int set_factory_default(CliContext &, const char *, CliCommand *) {
    run_command("/etc/scripts/misc/profile.sh reset");
    save_configuration();
    print_lines({"Restore device to factory default setting!", "Please reboot device!"});
    return CLI_DONE;
}

int compare_with_factory(CliContext &, const char *, CliCommand *) {
    SavedConfig current;
    if (!current)
        return refuse(MEMORY_ERROR);
    save_to_file();
    if (!current.read_file()) {
        remove_file();
        return refuse("Can't open configuration file\n");
    }
    remove_file();
    write_loadable(current);
    SavedConfig factory;
    if (!factory) {
        cli_printf(MEMORY_ERROR);
        remove_file();
        return CLI_REFUSED;
    }
    run_command("mv /var/config.bin /var/config2.bin");
    run_command("/etc/scripts/misc/profile.sh reset");
    save_to_file();
    const bool is_saved = factory.read_file();
    restore_settings();
    if (!is_saved)
        return refuse("Can't open configuration file\n");
    print_verdict(current, factory);
    return CLI_DONE;
}
