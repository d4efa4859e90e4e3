#include "shell/prompt.h"

#include <cstdio>

char *cli_prompt = nullptr;

void reset_prompt() {
    std::snprintf(cli_prompt, PROMPT_SIZE, "WAP-> ");
}
