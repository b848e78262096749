// The small-block pool: blocks out at the same time never share a byte, are
// aligned for what is put in them, and come back for reuse from any thread.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include "platform/BlockPool.h"

namespace {

using namespace platform;

struct Block
{
    unsigned char *p;
    std::size_t n;
    unsigned tag;
};

unsigned char PatternByte(unsigned tag, std::size_t i)
{
    return static_cast<unsigned char>((tag * 2654435761u + static_cast<unsigned>(i) * 40503u) >> 24);
}

// An object's alignment divides its size; nothing needs more than 16.
std::size_t NeededAlignment(std::size_t n)
{
    return n ? std::min<std::size_t>(n & (~n + 1), 16) : 1;
}

Block Take(std::size_t n, unsigned tag, BlockStream stream = kGeneralBlocks)
{
    Block b{static_cast<unsigned char *>(AllocateBlock(n, stream)), n, tag};
    EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(b.p) % NeededAlignment(n)) << "size " << n;
    for (std::size_t i = 0; i < n; ++i)
        b.p[i] = PatternByte(tag, i);
    return b;
}

// Checks the block's pattern, then gives it back.
void Give(Block const &b, bool bSizeKnown = true)
{
    for (std::size_t i = 0; i < b.n; ++i)
        ASSERT_EQ(PatternByte(b.tag, i), b.p[i]) << "block " << b.tag << " of " << b.n << " bytes, byte " << i;
    bSizeKnown ? FreeBlock(b.p, b.n) : FreeBlockOfUnknownSize(b.p);
}

void GiveAllInRandomOrder(std::vector<Block> &blocks, std::mt19937 &rng)
{
    std::shuffle(blocks.begin(), blocks.end(), rng);
    for (Block const &b : blocks)
        Give(b);
    blocks.clear();
}

// BlockBytesInUse counts pool blocks in the release build and reads 0 under
// AddressSanitizer, where blocks come from the plain heap.
TEST(BlockPool, BlocksOutTogetherNeverOverlapOverStreamsSizesAndReuse)
{
    std::size_t const nStart = BlockBytesInUse();
    std::mt19937 rng(20240611);
    std::uniform_int_distribution<std::size_t> size(0, kMaxPoolBlock + 40);  // some from the heap
    std::vector<Block> live;
    for (unsigned step = 0; step < 60000; ++step) {
        if (step % 15000 == 14999)  // empties every chunk, so they start over
            GiveAllInRandomOrder(live, rng);
        if (live.empty() || rng() % 5 < 3) {
            live.push_back(Take(size(rng), step, static_cast<BlockStream>(rng() % kBlockStreams)));
        } else {
            std::swap(live[rng() % live.size()], live.back());
            Give(live.back());
            live.pop_back();
        }
        ASSERT_FALSE(HasFatalFailure());
    }
    std::sort(live.begin(), live.end(), [](Block const &a, Block const &b) { return a.p < b.p; });
    for (std::size_t i = 1; i < live.size(); ++i)
        ASSERT_LE(live[i - 1].p + std::max<std::size_t>(live[i - 1].n, 1), live[i].p) << "blocks overlap";
    GiveAllInRandomOrder(live, rng);
    EXPECT_EQ(nStart, BlockBytesInUse());
}

// Rounds of several chunks' worth of blocks, each given back by giveBack:
// how many distinct addresses they had, or 0 when they came from the plain
// heap (which may hold freed blocks back).
template <class GiveBack>
std::size_t AddressesOverRounds(GiveBack giveBack)
{
    std::size_t const nStart = BlockBytesInUse();
    std::set<unsigned char *> seen;
    bool bPooled = false;
    for (unsigned round = 0; round < 10; ++round) {
        std::vector<Block> blocks;
        for (unsigned i = 0; i < 3000; ++i)
            blocks.push_back(Take(64, round * 3000 + i));
        bPooled = bPooled || BlockBytesInUse() > nStart;
        for (Block const &b : blocks)
            seen.insert(b.p);
        giveBack(blocks, round);
        if (testing::Test::HasFatalFailure())
            break;
    }
    return bPooled ? seen.size() : 0;
}

TEST(BlockPool, FreedBlocksAreReusedWhateverTheOrderTheyCameBackIn)
{
    std::size_t const nStart = BlockBytesInUse();
    std::mt19937 rng(7);
    std::vector<Block> survivors;  // keep their chunks from starting over
    EXPECT_LE(AddressesOverRounds([&](std::vector<Block> &blocks, unsigned round) {
                  if (round % 2)
                      std::reverse(blocks.begin(), blocks.end());
                  else
                      std::shuffle(blocks.begin(), blocks.end(), rng);
                  for (Block const &b : blocks)
                      b.tag % 500 ? Give(b) : survivors.push_back(b);
              }),
              6000u);
    GiveAllInRandomOrder(survivors, rng);
    EXPECT_EQ(nStart, BlockBytesInUse());
}

TEST(BlockPool, UnknownSizeFreeingAndBlocksAboveThePoolSize)
{
    std::size_t const nStart = BlockBytesInUse();
    std::vector<Block> blocks;
    for (std::size_t n : {kMaxPoolBlock + 1, std::size_t{4096}, std::size_t{1} << 20})
        blocks.push_back(Take(n, static_cast<unsigned>(n)));
    EXPECT_EQ(nStart, BlockBytesInUse()) << "heap blocks counted as pool blocks";
    for (std::size_t n = 0; n <= kMaxPoolBlock; ++n)
        blocks.push_back(Take(n, static_cast<unsigned>(n), static_cast<BlockStream>(n % kBlockStreams)));
    for (std::size_t i = 0; i < blocks.size(); ++i)
        Give(blocks[i], i % 2 == 0);
    EXPECT_EQ(nStart, BlockBytesInUse());
    // A block given back as the wrong size would now overlap a neighbour.
    std::vector<Block> again;
    for (std::size_t n = 0; n <= kMaxPoolBlock; ++n)
        again.push_back(Take(n, static_cast<unsigned>(n) + 1000u));
    std::mt19937 rng(3);
    GiveAllInRandomOrder(again, rng);
}

TEST(BlockPool, BlocksFreedOnAnotherThreadComeBackToTheirOwner)
{
    std::mt19937 rng(11);
    EXPECT_LE(AddressesOverRounds([&](std::vector<Block> &blocks, unsigned) {
                  std::thread([&] { GiveAllInRandomOrder(blocks, rng); }).join();
              }),
              6000u)
        << "blocks freed by another thread are not handed out again";
    // A thread's blocks outlive it and are freed here; its chunks go on to
    // the next thread, which must not be handed a block still in use.
    std::vector<Block> orphans;
    std::thread([&] {
        orphans.push_back(Take(32, 1));
        orphans.push_back(Take(32, 2));
    }).join();
    Give(orphans[0]);
    std::thread([&] {
        orphans[0] = Take(32, 3);
        Give(orphans[0]);
    }).join();
    Give(orphans[1]);
}

}  // namespace
