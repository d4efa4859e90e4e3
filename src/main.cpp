// The interactive command-line interface of the access point.
#include "shell/console.h"
#include "shell/process.h"
#include "tables/root.h"

int main() {
    prepare_process();
    return run_console(stdin, root_table());
}
