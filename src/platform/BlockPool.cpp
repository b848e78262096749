#include "BlockPool.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <new>

// AddressSanitizer watches heap allocations: pooled blocks would hide a use
// after free or an overflow into a neighbour from it.
#if defined(__SANITIZE_ADDRESS__)
#define STRATAGEM_PLAIN_HEAP 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define STRATAGEM_PLAIN_HEAP 1
#endif
#endif

namespace platform {

#ifdef STRATAGEM_PLAIN_HEAP

void *AllocateBlock(std::size_t nSize, BlockStream)
{
    return ::operator new(nSize);
}

// With sized deallocation the sanitizer also checks the size given back.
void FreeBlock(void *pBlock, std::size_t nSize) noexcept
{
#ifdef __cpp_sized_deallocation
    ::operator delete(pBlock, nSize);
#else
    (void)nSize;
    ::operator delete(pBlock);
#endif
}

void FreeBlockOfUnknownSize(void *pBlock) noexcept
{
    ::operator delete(pBlock);
}

std::size_t BlockBytesInUse()
{
    return 0;
}

#else

namespace {

// Size class c holds blocks of (c + 1) * 8 bytes. An object whose alignment
// is 16 has a size that is a multiple of 16, and so gets a class whose
// blocks all start on a multiple of 16.
constexpr std::size_t kGranule = 8;
constexpr std::size_t kClasses = kMaxPoolBlock / kGranule;
constexpr std::size_t kChunkSize = 64 * 1024;

struct FreeNode
{
    FreeNode *pNext;
};

struct Chunk;

// Per thread, stream and class: the chunk blocks are taken from, and the
// chunks that have room besides.
struct ClassState
{
    Chunk *pCurrent;
    Chunk *pWithRoom;
};

struct ThreadPool;

// The head of every chunk. Chunks are aligned to their size, so a block's
// chunk is its address with the low bits cleared. A chunk belongs to the
// pool that made it; only the thread holding that pool touches its plain
// fields.
struct alignas(16) Chunk
{
    ThreadPool *pOwner;
    std::size_t nBlock;          // the size of its blocks
    std::size_t nLive;           // blocks handed out and not given back
    FreeNode *pFree;             // blocks given back, newest first
    char *pUncut;                // the space never handed out since the chunk was empty
    Chunk *pNextWithRoom;        // in the owner's list of chunks with room
    bool bInUse;                 // the owner's current chunk, or in its list
    std::atomic<FreeNode *> pForeign;  // blocks given back by other threads
    Chunk *pNextOfAll;           // every chunk of the process
    ClassState *pState;          // the owner's class and stream of its blocks

    char *Start() { return reinterpret_cast<char *>(this + 1); }
    char *End() { return reinterpret_cast<char *>(this) + kChunkSize; }
};

// The chunks a thread takes blocks from. A pool is made for a thread's first
// block and parked when the thread ends, for the next new thread to take
// over with all its chunks; pools are never freed.
struct ThreadPool
{
    ClassState classes[kBlockStreams][kClasses];
    ThreadPool *pNextParked;
    // Blocks other threads have given back to this pool's chunks since the
    // pool last took them back: counted so that the owner looks for them
    // only when there are some.
    std::atomic<unsigned> nForeignFrees{0};
};

// The calling thread's pool, or null before its first block. One pointer of
// initial-exec thread storage is reached without a call, and is small enough
// for a library that a host loads at run time.
thread_local ThreadPool *t_pPool __attribute__((tls_model("initial-exec"))) = nullptr;

std::mutex g_poolMutex;
ThreadPool *g_pParked = nullptr;

// Parks the thread's pool when the thread ends.
struct PoolParker
{
    ~PoolParker()
    {
        if (!t_pPool)
            return;
        std::lock_guard<std::mutex> lock(g_poolMutex);
        t_pPool->pNextParked = g_pParked;
        g_pParked = t_pPool;
        t_pPool = nullptr;
    }
};

ThreadPool *AdoptPool()
{
    static thread_local PoolParker s_parker;  // made here, so it parks what is adopted here
    static_cast<void>(&s_parker);
    std::lock_guard<std::mutex> lock(g_poolMutex);
    if (ThreadPool *pParked = g_pParked) {
        g_pParked = pParked->pNextParked;
        t_pPool = pParked;
    } else {
        t_pPool = new ThreadPool{};
    }
    return t_pPool;
}

ThreadPool &ThePool()
{
    ThreadPool *pPool = t_pPool;
    return *(pPool ? pPool : AdoptPool());
}

// Chunks are never freed: they stay reachable from this list until the
// process ends.
std::mutex g_chunkMutex;
Chunk *g_pChunks = nullptr;

Chunk *ChunkOf(void *pBlock)
{
    return reinterpret_cast<Chunk *>(reinterpret_cast<std::uintptr_t>(pBlock) & ~(kChunkSize - 1));
}

Chunk *NewChunk(ClassState &state, std::size_t nBlock)
{
    void *pMemory = ::operator new(kChunkSize, std::align_val_t(kChunkSize));
    Chunk *pChunk =
        new (pMemory) Chunk{t_pPool, nBlock, 0, nullptr, nullptr, nullptr, true, {nullptr}, nullptr, &state};
    pChunk->pUncut = pChunk->Start();
    std::lock_guard<std::mutex> lock(g_chunkMutex);
    pChunk->pNextOfAll = g_pChunks;
    g_pChunks = pChunk;
    return pChunk;
}

// Takes over the blocks other threads gave back to the chunk.
void ReclaimForeign(Chunk *pChunk)
{
    FreeNode *pNode = pChunk->pForeign.exchange(nullptr, std::memory_order_acquire);
    while (pNode) {
        FreeNode *pNext = pNode->pNext;
        pNode->pNext = pChunk->pFree;
        pChunk->pFree = pNode;
        --pChunk->nLive;
        pNode = pNext;
    }
    if (pChunk->nLive == 0) {
        pChunk->pFree = nullptr;
        pChunk->pUncut = pChunk->Start();
    }
}

// A block of the chunk, or null when it is full.
void *TakeFrom(Chunk *pChunk)
{
    if (FreeNode *pNode = pChunk->pFree) {
        pChunk->pFree = pNode->pNext;
        ++pChunk->nLive;
        return pNode;
    }
    if (pChunk->End() - pChunk->pUncut >= static_cast<std::ptrdiff_t>(pChunk->nBlock)) {
        void *pBlock = pChunk->pUncut;
        pChunk->pUncut += pChunk->nBlock;
        ++pChunk->nLive;
        return pBlock;
    }
    return nullptr;
}

// A block from the first listed chunk that still has room; null when none
// has. Chunks found full leave the list.
void *TakeFromChunksWithRoom(ClassState &state)
{
    while (Chunk *pChunk = state.pWithRoom) {
        state.pWithRoom = pChunk->pNextWithRoom;
        state.pCurrent = pChunk;
        if (void *pBlock = TakeFrom(pChunk))
            return pBlock;
        pChunk->bInUse = false;
        state.pCurrent = nullptr;
    }
    return nullptr;
}

// Takes back what other threads gave back to any chunk of the pool, also to
// chunks the pool has left because they were full, and lists each of those
// with its class again, so that no block given back is lost to its owner.
void ReclaimForeignEverywhere(ThreadPool *pPool)
{
    if (pPool->nForeignFrees.exchange(0, std::memory_order_acquire) == 0)
        return;
    std::lock_guard<std::mutex> lock(g_chunkMutex);
    for (Chunk *pChunk = g_pChunks; pChunk; pChunk = pChunk->pNextOfAll) {
        if (pChunk->pOwner != pPool || !pChunk->pForeign.load(std::memory_order_acquire))
            continue;
        ReclaimForeign(pChunk);
        if (pChunk->bInUse)
            continue;
        ClassState &owning = *pChunk->pState;
        pChunk->bInUse = true;
        pChunk->pNextWithRoom = owning.pWithRoom;
        owning.pWithRoom = pChunk;
    }
}

// The current chunk is full: continue with a chunk that has room, else one
// that other threads have given blocks back to, else a new one.
void *AllocateSlow(ClassState &state, std::size_t nBlock)
{
    if (Chunk *pFull = state.pCurrent) {
        ReclaimForeign(pFull);
        if (void *pBlock = TakeFrom(pFull))
            return pBlock;
        pFull->bInUse = false;
        state.pCurrent = nullptr;
    }
    if (void *pBlock = TakeFromChunksWithRoom(state))
        return pBlock;
    ReclaimForeignEverywhere(t_pPool);
    if (void *pBlock = TakeFromChunksWithRoom(state))
        return pBlock;
    state.pCurrent = NewChunk(state, nBlock);
    return TakeFrom(state.pCurrent);
}

void FreeForeign(Chunk *pChunk, FreeNode *pNode)
{
    FreeNode *pHead = pChunk->pForeign.load(std::memory_order_relaxed);
    do
        pNode->pNext = pHead;
    while (!pChunk->pForeign.compare_exchange_weak(pHead, pNode, std::memory_order_release,
                                                   std::memory_order_relaxed));
    pChunk->pOwner->nForeignFrees.fetch_add(1, std::memory_order_release);
}

}  // namespace

void *AllocateBlock(std::size_t nSize, BlockStream nStream)
{
    if (nSize > kMaxPoolBlock)
        return ::operator new(nSize);
    std::size_t const nClass = nSize ? (nSize - 1) / kGranule : 0;
    ClassState &state = ThePool().classes[nStream][nClass];
    if (Chunk *pChunk = state.pCurrent)
        if (void *pBlock = TakeFrom(pChunk))
            return pBlock;
    return AllocateSlow(state, (nClass + 1) * kGranule);
}

// A chunk whose blocks are all back starts over from its beginning: after a
// large tree is freed, the next one is laid out in address order again
// instead of in the scattered order its predecessor was freed in.
void FreeBlock(void *pBlock, std::size_t nSize) noexcept
{
    if (!pBlock)
        return;
    if (nSize > kMaxPoolBlock) {
        ::operator delete(pBlock);
        return;
    }
    Chunk *pChunk = ChunkOf(pBlock);
    FreeNode *pNode = static_cast<FreeNode *>(pBlock);
    if (pChunk->pOwner != t_pPool) {
        FreeForeign(pChunk, pNode);
        return;
    }
    if (--pChunk->nLive == 0) {
        pChunk->pFree = nullptr;
        pChunk->pUncut = pChunk->Start();
    } else {
        pNode->pNext = pChunk->pFree;
        pChunk->pFree = pNode;
    }
    if (!pChunk->bInUse) {
        ClassState &state = *pChunk->pState;
        pChunk->bInUse = true;
        pChunk->pNextWithRoom = state.pWithRoom;
        state.pWithRoom = pChunk;
    }
}

void FreeBlockOfUnknownSize(void *pBlock) noexcept
{
    if (!pBlock)
        return;
    Chunk *pOwning = ChunkOf(pBlock);
    bool bPooled = false;
    {
        std::lock_guard<std::mutex> lock(g_chunkMutex);
        for (Chunk const *pChunk = g_pChunks; pChunk && !bPooled; pChunk = pChunk->pNextOfAll)
            bPooled = pChunk == pOwning;
    }
    if (bPooled)
        FreeBlock(pBlock, pOwning->nBlock);
    else
        ::operator delete(pBlock);
}

std::size_t BlockBytesInUse()
{
    std::size_t nBytes = 0;
    std::lock_guard<std::mutex> lock(g_chunkMutex);
    for (Chunk const *pChunk = g_pChunks; pChunk; pChunk = pChunk->pNextOfAll)
        nBytes += pChunk->nLive * pChunk->nBlock;
    return nBytes;
}

#endif

void *AllocateBlockOrNull(std::size_t nSize, BlockStream nStream) noexcept
{
    try {
        return AllocateBlock(nSize, nStream);
    } catch (std::bad_alloc const &) {
        return nullptr;
    }
}

}  // namespace platform
