// A prompt with the usual line editor, to measure the console's against.
#include <cstdio>
#include <cstdlib>
#include <readline/readline.h>

int main() {
    while (char *line = readline("WAP-> "))
        std::free(line);
    return 0;
}
