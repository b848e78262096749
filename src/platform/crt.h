// The pieces of the original C runtime whose behaviour the system depends on
// and that this platform's C library does differently.
#ifndef STRATAGEM_PLATFORM_CRT_H
#define STRATAGEM_PLATFORM_CRT_H

#include "CString.h"
#include "export.h"

namespace crt {

// The original runtime's pseudo-random generator: one process-wide 32-bit
// state, 1 at start; rand() yields 0 to 32767.
int const kRandMax = 0x7FFF;
STRATAGEM_API int rand();
STRATAGEM_API void srand(unsigned int seed);

// Splits a path as the original _splitpath does: drive ("C:"), directory up
// to and including the last "\" or "/", base name, and extension from the
// last "." of the remainder (period included).
STRATAGEM_API void SplitPath(char const *path, CString &drive, CString &dir, CString &fname, CString &ext);

}  // namespace crt

#endif
