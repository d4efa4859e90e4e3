// The interactive command-line interface of the access point.
#include "shell/console.h"
#include "shell/process.h"
#include "shell/script.h"
#include "tables/root.h"

// One table of commands, entered by the console and by wap-sh, which takes lines from scripts.
int main(int argc, char **argv) {
    prepare_process();
    if (argc > 1 && is_script_name(argv[0]))
        return run_script(argc, argv, root_table());
    return run_console(stdin, root_table());
}
