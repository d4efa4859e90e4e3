// A prompt with the line editor that everybody knows: what the console's is measured against.
#include <cstdio>
#include <cstdlib>
#include <readline/readline.h>

int main() {
    while (char *line = readline("WAP-> "))
        std::free(line);
    return 0;
}
