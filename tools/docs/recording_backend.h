// Stands in for the database and the system shell: nodes read as empty, and writes and command
// lines are recorded instead of done. Linked instead of config/node_access and
// config/host_command.
#pragma once

#include <string>
#include <vector>

// What the handlers called so far have written, deleted and run, oldest first, each as Markdown.
extern std::vector<std::string> recorded_effects;
