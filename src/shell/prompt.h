#pragma once

// Printed before each line: PROMPT_SIZE bytes, allocated at start-up.
extern char *cli_prompt;

inline constexpr int PROMPT_SIZE = 16;

// Sets the prompt to its usual text.
void reset_prompt();
