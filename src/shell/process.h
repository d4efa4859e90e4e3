#pragma once

// To be called first in main. Opens "/dev/null" for those of the descriptors 0, 1 and 2 that are
// closed, so that no connection to the database can take the place of standard output; ends the
// process with status 255 when that fails. Puts output into blocking mode, see
// make_output_blocking. The process leaves no core file and only root can trace it, since its
// memory holds passwords; the programs that it starts are unaffected.
void prepare_process();
