#pragma once

// Reads exactly one byte, so that a child that shares the descriptor finds the rest. Waits for it
// even in non-blocking mode. Returns 1; 0 at the end of input; or -1 with errno when reading
// failed.
int read_byte(int fd, unsigned char &byte);
