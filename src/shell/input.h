#pragma once

// Reads one byte of a descriptor, and waits for it even if that one does not block. Nothing beyond
// it is taken, so that a child that shares the descriptor finds the rest there. Returns 1; 0 at the
// end of input; or -1 with errno when reading failed.
int read_byte(int fd, unsigned char &byte);
