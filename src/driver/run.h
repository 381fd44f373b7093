// The run sequence on the top floor.
#pragma once

// Reads the whole input and, if nothing was reported, writes the output file. Returns 0 when the run was clean and
// non-zero otherwise; every failure has been reported by then.
int readmodule();
