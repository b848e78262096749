// Small fixed-size blocks for the many little objects an analysis makes and
// frees: list nodes, map entries and script objects. Taking a block is a pop
// from a free list or a step through fresh space, and giving it back a push,
// so the general heap's cost (and its coalescing when a whole tree is freed)
// is not paid per object, and objects made one after the other lie side by
// side.
//
// Blocks of one size are cut from 64 KiB chunks. A chunk whose blocks have
// all come back starts over from its beginning, so that after a large tree
// is freed the next one is laid out in address order again rather than in
// the order its predecessor was freed in. Chunks stay with the process until
// it ends (reachable, so leak checkers do not report them); each thread
// takes from chunks of its own, and a block given back by another thread is
// handed to its chunk's owner. In a build with AddressSanitizer every block
// is a plain heap allocation instead, so that the sanitizer still sees each
// object.
#ifndef STRATAGEM_PLATFORM_BLOCKPOOL_H
#define STRATAGEM_PLATFORM_BLOCKPOOL_H

#include <cstddef>
#include <new>

#include "export.h"

namespace platform {

// Blocks up to this size come from the pool; larger ones from the heap.
constexpr std::size_t kMaxPoolBlock = 256;

// Blocks that are walked one after the other long after they were made
// have streams of their own, with chunks of their own, so that they lie side
// by side instead of between everything else made meanwhile: the nodes a
// list gets once it is long (a file's command list), and commands (loaded,
// listed and freed one after the other).
enum BlockStream : unsigned
{
    kGeneralBlocks,
    kLongListNodes,
    kCommandBlocks,
    kBlockStreams
};

// nSize bytes, aligned for any object of that size (to 16 bytes when the
// size is a multiple of 16); throws std::bad_alloc when there is no memory
// left.
STRATAGEM_API void *AllocateBlock(std::size_t nSize, BlockStream nStream = kGeneralBlocks);

// As AllocateBlock, but null instead of an exception when there is no
// memory left (for the nothrow forms of operator new).
STRATAGEM_API void *AllocateBlockOrNull(std::size_t nSize, BlockStream nStream = kGeneralBlocks) noexcept;

// Gives back a block from AllocateBlock; nSize must be the size asked for.
STRATAGEM_API void FreeBlock(void *pBlock, std::size_t nSize) noexcept;

// Gives back a block whose size is not known (the slow path, for the rare
// case where only the address is at hand).
STRATAGEM_API void FreeBlockOfUnknownSize(void *pBlock) noexcept;

// Bytes in pool blocks handed out and not given back, over all threads: a
// probe for measurements. 0 when blocks come from the plain heap.
STRATAGEM_API std::size_t BlockBytesInUse();

// A standard allocator over the pool, for the storage of small arrays.
template <class T>
struct BlockAllocator
{
    static_assert(alignof(T) <= 16, "pool blocks are aligned to 16 bytes");
    using value_type = T;

    BlockAllocator() = default;
    template <class U>
    BlockAllocator(BlockAllocator<U> const &) noexcept
    {
    }

    T *allocate(std::size_t n)
    {
        if (n > static_cast<std::size_t>(-1) / sizeof(T))
            throw std::bad_array_new_length();
        return static_cast<T *>(AllocateBlock(n * sizeof(T)));
    }
    void deallocate(T *p, std::size_t n) noexcept { FreeBlock(p, n * sizeof(T)); }

    template <class U>
    bool operator==(BlockAllocator<U> const &) const noexcept
    {
        return true;
    }
    template <class U>
    bool operator!=(BlockAllocator<U> const &) const noexcept
    {
        return false;
    }
};

}  // namespace platform

#endif
