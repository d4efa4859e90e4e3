// The interactive command-line interface of the access point.
#include "shell/console.h"
#include "tables/root.h"

int main() {
    return run_console(stdin, root_table());
}
