// Allocation failure: wherever the library allocates, a failure surfaces as
// the platform's memory exception (CMemoryException, thrown by pointer),
// never as the standard library's std::bad_alloc.
#ifndef STRATAGEM_PLATFORM_MEMORY_H
#define STRATAGEM_PLATFORM_MEMORY_H

#include <new>

#include "export.h"

[[noreturn]] STRATAGEM_API void AfxThrowMemoryException();

namespace platform {

// Runs the work and answers its result; std::bad_alloc from inside it
// becomes the memory exception.
template <class WORK>
decltype(auto) Allocating(WORK &&work)
{
    try {
        return work();
    } catch (std::bad_alloc const &) {
        AfxThrowMemoryException();
    }
}

}  // namespace platform

#endif
