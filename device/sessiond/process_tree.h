// The processes below this one, where no process namespace ends them.
#pragma once

// From here on, a descendant whose parent ends becomes this process's child.
void adopt_orphans();

// Kills all descendants, and waits for their end. Needs adopt_orphans from the beginning.
void kill_descendants();
