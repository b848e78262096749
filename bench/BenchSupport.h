// Small pieces the benchmarks share: a private temporary directory, an output
// stream that only counts what is written, and memory probes.
#ifndef STRATAGEM_BENCH_BENCHSUPPORT_H
#define STRATAGEM_BENCH_BENCHSUPPORT_H

#include <ostream>
#include <streambuf>
#include <string>

namespace bench {

// A fresh directory under $TMPDIR (or /tmp), removed with everything in it
// when the object goes.
class TempDirectory
{
public:
    explicit TempDirectory(char const *pszPrefix);
    ~TempDirectory();
    TempDirectory(TempDirectory const &) = delete;
    TempDirectory &operator=(TempDirectory const &) = delete;

    std::string const &Path() const { return m_path; }

private:
    std::string m_path;
};

// Swallows the listing, keeping only its length.
class CountingStream : public std::ostream
{
public:
    CountingStream() : std::ostream(&m_buffer) {}
    long long Count() const { return m_buffer.nCount; }

private:
    struct Buffer : std::streambuf
    {
        long long nCount = 0;
        int_type overflow(int_type c) override
        {
            if (!traits_type::eq_int_type(c, traits_type::eof()))
                ++nCount;
            return traits_type::not_eof(c);
        }
        std::streamsize xsputn(char const *, std::streamsize n) override
        {
            nCount += n;
            return n;
        }
    } m_buffer;
};

// Tells the allocator to keep what is freed: no trimming of the heap's top
// and no separate mappings for large blocks. Otherwise every analysis of a
// large strategy hands its tens of MiB back to the system when the strategy
// goes and faults them in again for the next one, and the measurement would
// be of the kernel's page handling. A host analysing strategy after strategy
// may set the same.
void KeepFreedMemory();

// The process's peak resident set so far, in MiB.
double PeakRssMiB();
// Bytes handed out and not yet taken back, by the allocator and by the
// library's pool of small blocks.
long long HeapInUse();
// Calls of operator new since the program started.
long long AllocationCount();

}  // namespace bench

#endif
