// Writes the command reference, docs/commands.md and docs/wap-cli.8.
//
// usage: generate_docs WORDS ETC DIRECTORY
//   WORDS      the table of words: see syntax.h
//   ETC        /etc of the stand-in device, with the settings that examples begin with
//   DIRECTORY  where the documents go
#include "documents.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>

namespace {

bool write_file(const std::string &path, const std::function<void(std::ostream &)> &write) {
    std::ofstream file(path);
    write(file);
    file.close();
    if (!file)
        std::cerr << "cannot write " << path << '\n';
    return static_cast<bool>(file);
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 4) {
        std::cerr << "usage: generate_docs WORDS ETC DIRECTORY\n";
        return 2;
    }
    setenv("TZ", "UTC", 1);
    if (!use_trial_settings(argv[2])) {
        std::cerr << "cannot read the settings in " << argv[2] << '\n';
        return 1;
    }
    const std::vector<Topic> topics = make_reference(argv[1]);
    if (topics.empty())
        return 1;
    const std::string directory = argv[3];
    const bool written = write_file(directory + "/commands.md",
                                    [&](std::ostream &out) { write_markdown(out, topics); }) &&
                         write_file(directory + "/wap-cli.8", [&](std::ostream &out) {
                             write_manual(out, topics, WAP_VERSION);
                         });
    return written ? 0 : 1;
}
