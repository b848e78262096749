#include "BenchSupport.h"

#include <malloc.h>
#include <stdlib.h>
#include <sys/resource.h>

#include <filesystem>
#include <new>
#include <stdexcept>
#include <vector>

// Every allocation of the program goes through these, so that an analysis
// can be charged with the number of objects it allocates.
namespace {
long long g_nAllocations = 0;

void *Allocate(std::size_t nSize)
{
    ++g_nAllocations;
    if (void *p = malloc(nSize ? nSize : 1))
        return p;
    throw std::bad_alloc();
}
}  // namespace

void *operator new(std::size_t nSize) { return Allocate(nSize); }
void *operator new[](std::size_t nSize) { return Allocate(nSize); }
void *operator new(std::size_t nSize, std::nothrow_t const &) noexcept
{
    ++g_nAllocations;
    return malloc(nSize ? nSize : 1);
}
void *operator new[](std::size_t nSize, std::nothrow_t const &) noexcept
{
    ++g_nAllocations;
    return malloc(nSize ? nSize : 1);
}
void operator delete(void *p) noexcept { free(p); }
void operator delete[](void *p) noexcept { free(p); }
void operator delete(void *p, std::size_t) noexcept { free(p); }
void operator delete[](void *p, std::size_t) noexcept { free(p); }

namespace bench {

long long AllocationCount() { return g_nAllocations; }

TempDirectory::TempDirectory(char const *pszPrefix)
{
    char const *pszRoot = getenv("TMPDIR");
    std::string pattern = std::string(pszRoot && *pszRoot ? pszRoot : "/tmp") + "/" + pszPrefix + "-XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    if (!mkdtemp(name.data()))
        throw std::runtime_error("cannot create a directory like " + pattern);
    m_path = name.data();
}

TempDirectory::~TempDirectory()
{
    std::error_code error;
    std::filesystem::remove_all(m_path, error);
}

void KeepFreedMemory()
{
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_MMAP_THRESHOLD, 32 << 20);  // the largest threshold allowed
}

double PeakRssMiB()
{
    struct rusage usage
    {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;  // reported in KiB
}

long long HeapInUse()
{
    struct mallinfo2 info = mallinfo2();
    return static_cast<long long>(info.uordblks + info.hblkhd);
}

}  // namespace bench
