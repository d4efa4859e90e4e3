// The process as a whole.
#pragma once

// Comes first in every main, before anything is opened. Of the descriptors 0, 1 and 2 those that
// are closed become "/dev/null", so that no connection to the database ever takes the place of
// standard output. Output waits for its reader, see make_output_blocking. The process leaves no
// core file and nobody else reads its memory, which holds passwords; the programs that it
// starts are unaffected. Where "/dev/null" cannot be opened the process ends with status 255.
void prepare_process();
