// The smallest dynamic program: what starting a process costs.
#include <cstdio>
#include <unistd.h>

int main(int argc, char **) {
    std::fputs("hello\n", stdout);
    std::fflush(stdout);
    if (argc > 1)
        pause(); // so that its memory can be measured
    return 0;
}
