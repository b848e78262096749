// Allocation failure over a whole sample analysis, in the manner of SQLite's
// malloc tests: this program replaces the global operator new, and for every
// k the k-th allocation of the run fails. Whatever k is, the run must end
// either in success or in the platform's memory exception, free everything
// it allocated, and leave the library able to repeat the run exactly.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "stratagem.h"

namespace {

long g_nAllocations = 0;  // allocations since the run started
long g_nFailAt = 0;       // the allocation that fails (from 1); 0 for none
long g_nLive = 0;         // allocations not yet freed

void *Allocate(std::size_t nSize) noexcept
{
    if (++g_nAllocations == g_nFailAt)
        return nullptr;
    void *p = std::malloc(nSize ? nSize : 1);
    if (p)
        ++g_nLive;
    return p;
}

void Free(void *p) noexcept
{
    if (p) {
        --g_nLive;
        std::free(p);
    }
}

}  // namespace

void *operator new(std::size_t nSize)
{
    if (void *p = Allocate(nSize))
        return p;
    throw std::bad_alloc();
}
void *operator new[](std::size_t nSize) { return operator new(nSize); }
void *operator new(std::size_t nSize, std::nothrow_t const &) noexcept { return Allocate(nSize); }
void *operator new[](std::size_t nSize, std::nothrow_t const &) noexcept { return Allocate(nSize); }
void operator delete(void *p) noexcept { Free(p); }
void operator delete[](void *p) noexcept { Free(p); }
void operator delete(void *p, std::size_t) noexcept { Free(p); }
void operator delete[](void *p, std::size_t) noexcept { Free(p); }
void operator delete(void *p, std::nothrow_t const &) noexcept { Free(p); }
void operator delete[](void *p, std::nothrow_t const &) noexcept { Free(p); }

namespace {

// A stream buffer over room reserved beforehand, so that writing the
// listing allocates nothing of the host's own.
class ReservedBuffer : public std::streambuf
{
public:
    explicit ReservedBuffer(std::size_t nRoom) : m_text(nRoom, '\0') { setp(&m_text[0], &m_text[0] + nRoom); }
    std::string Text() const { return std::string(pbase(), pptr()); }

private:
    std::string m_text;
};

// Every object under the root, as an editor host walks them: its
// description, then its children's.
void Walk(AI_CObject const &object, std::string &descriptions)
{
    descriptions += static_cast<char const *>(object.GetDescription());
    descriptions += '\n';
    CTypedPtrList<CObList, AI_CObject *> children;
    object.GetObjects(children);
    for (POSITION pos = children.GetHeadPosition(); pos;)
        Walk(*children.GetNext(pos), descriptions);
}

// The listing with its constants table in sorted order: each run in a process
// registers the constants anew under SIDs not used before, and the table's
// order follows the SIDs.
std::string WithConstantsSorted(std::string const &text)
{
    std::istringstream in(text);
    std::string out, line;
    std::vector<std::string> constants;
    bool bInConstants = false;
    while (std::getline(in, line)) {
        if (bInConstants && line.empty()) {
            std::sort(constants.begin(), constants.end());
            for (std::string const &constant : constants)
                out += constant + '\n';
            bInConstants = false;
        }
        if (bInConstants) {
            constants.push_back(line);
            continue;
        }
        bInConstants = line.rfind(";Constants:", 0) == 0;
        out += line + '\n';
    }
    return out;
}

struct Outcome
{
    std::string error;      // empty on success, else the exception's class
    std::string listing;    // the listing and the walk, on success
    long nAllocations = 0;  // allocations the run made
    long nLeaked = 0;       // allocations it did not free
};

// Registration, analysis of the sample strategy, its listing, the walk over
// its objects and the teardown, with the given allocation failing.
Outcome RunFailingAt(long nFailAt)
{
    Outcome outcome;
    ReservedBuffer buffer(1 << 20);
    std::ostream listing(&buffer);
    outcome.listing.reserve(1 << 20);
    outcome.error.reserve(256);
    crt::srand(1);  // the random loads choose alike in every run
    long const nLiveBefore = g_nLive;
    g_nAllocations = 0;
    g_nFailAt = nFailAt;
    try {
        AI_AddFacts();
        AI_AddActions();
        AI_AddDefines();
        AI_AddParams();
        AI_CStrategy strategy("Sample", STRATAGEM_SOURCE_DIR "/examples/main.per", AI_gsSettings);
        strategy.Analyze();
        strategy.PrettyPrint(listing, 0);
        Walk(strategy, outcome.listing);
    } catch (CMemoryException *pException) {
        outcome.error = "CMemoryException";
        pException->Delete();
    } catch (CException *pException) {
        outcome.error = pException->GetRuntimeClass()->m_lpszClassName;
        pException->Delete();
    } catch (std::exception const &exception) {
        outcome.error = std::string("std::exception: ") + exception.what();
    }
    AI_DeleteAll();
    g_nFailAt = 0;
    outcome.nAllocations = g_nAllocations;
    outcome.nLeaked = g_nLive - nLiveBefore;
    outcome.listing = WithConstantsSorted(buffer.Text() + outcome.listing);
    return outcome;
}

TEST(AllocationFailure, EveryAllocationOfASampleRunMayFail)
{
    RunFailingAt(0);  // the first run in a process makes what later runs reuse
    Outcome const clean = RunFailingAt(0);
    ASSERT_EQ("", clean.error);
    ASSERT_EQ(0, clean.nLeaked);
    ASSERT_GT(clean.listing.size(), 1000u);
    // Past the last allocation nothing fails; the run must then succeed.
    for (long k = 1; k <= clean.nAllocations + 1; ++k) {
        Outcome const failed = RunFailingAt(k);
        ASSERT_TRUE(failed.error.empty() || failed.error == "CMemoryException")
            << "allocation " << k << " of " << clean.nAllocations << " ends in " << failed.error;
        ASSERT_EQ(0, failed.nLeaked) << "allocation " << k << " failing leaks";
        if (failed.error.empty()) {
            ASSERT_TRUE(clean.listing == failed.listing) << "allocation " << k << " failing changes the result";
        }
        // The library is as good as new: the next run gives the same result
        // (checked after a sample of the failures, to keep the time down).
        if (k % 16 == 0) {
            Outcome const again = RunFailingAt(0);
            ASSERT_EQ("", again.error) << "after allocation " << k << " failed";
            ASSERT_TRUE(clean.listing == again.listing) << "after allocation " << k << " failed";
        }
    }
}

}  // namespace
