// The original C runtime's random generator and path splitter.
#include <gtest/gtest.h>

#include <cstdint>

#include "platform/afx.h"

namespace {

// The generator, written out from its definition.
class ReferenceRand
{
public:
    explicit ReferenceRand(std::uint32_t seed) : m_state(seed) {}
    int Next()
    {
        m_state = m_state * 214013u + 2531011u;
        return static_cast<int>((m_state >> 16) & 0x7FFF);
    }

private:
    std::uint32_t m_state;
};

TEST(Rand, StartsFromStateOne)
{
    // Each test runs in a fresh process, so nothing has drawn yet.
    EXPECT_EQ(41, crt::rand());
    EXPECT_EQ(18467, crt::rand());
    EXPECT_EQ(6334, crt::rand());
}

TEST(Rand, FollowsTheGeneratorForAnySeed)
{
    for (unsigned int seed : {0u, 1u, 2u, 12345u, 0x80000000u, 0xFFFFFFFFu}) {
        crt::srand(seed);
        ReferenceRand reference(seed);
        for (int i = 0; i < 1000; ++i)
            ASSERT_EQ(reference.Next(), crt::rand()) << "seed " << seed << " draw " << i;
    }
}

TEST(Rand, ReseedingRestartsTheSequence)
{
    crt::srand(1);
    int const first[3] = {crt::rand(), crt::rand(), crt::rand()};
    EXPECT_EQ(41, first[0]);
    EXPECT_EQ(18467, first[1]);
    EXPECT_EQ(6334, first[2]);
    crt::srand(1);
    EXPECT_EQ(41, crt::rand());
}

TEST(Rand, StaysWithinFifteenBits)
{
    crt::srand(987654321u);
    int lowest = 32767, highest = 0;
    for (int i = 0; i < 100000; ++i) {
        int const r = crt::rand();
        ASSERT_GE(r, 0);
        ASSERT_LE(r, 32767);
        lowest = r < lowest ? r : lowest;
        highest = r > highest ? r : highest;
    }
    EXPECT_LT(lowest, 100);
    EXPECT_GT(highest, 32667);
}

TEST(SplitPath, SplitsLikeTheOriginal)
{
    struct Case
    {
        char const *path, *drive, *dir, *fname, *ext;
    };
    Case const cases[] = {
        {"D:\\scripts\\main.txt", "D:", "\\scripts\\", "main", ".txt"},
        {"a/b.c/d", "", "a/b.c/", "d", ""},
        {"main", "", "", "main", ""},
        {".hidden", "", "", "", ".hidden"},
        {"dir/sub/x.tar.gz", "", "dir/sub/", "x.tar", ".gz"},
        {"mixed\\sep/name.", "", "mixed\\sep/", "name", "."},
        {"C:rel.per", "C:", "", "rel", ".per"},
        {"c:/", "c:", "/", "", ""},
        {"/abs/path/", "", "/abs/path/", "", ""},
        {"1:x.per", "", "", "1:x", ".per"},  // only a letter makes a drive
        {"", "", "", "", ""},
    };
    for (Case const &c : cases) {
        CString drive("?"), dir("?"), fname("?"), ext("?");
        crt::SplitPath(c.path, drive, dir, fname, ext);
        EXPECT_EQ(drive, c.drive) << c.path;
        EXPECT_EQ(dir, c.dir) << c.path;
        EXPECT_EQ(fname, c.fname) << c.path;
        EXPECT_EQ(ext, c.ext) << c.path;
    }
}

}  // namespace
