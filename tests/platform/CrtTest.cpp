// The original C runtime's random generator and path splitter.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/afx.h"

namespace {

// The generator written out from its definition.
int ReferenceDraw(std::uint32_t &state)
{
    state = state * 214013u + 2531011u;
    return static_cast<int>((state >> 16) & 0x7FFF);
}

TEST(Rand, FollowsTheGeneratorFromStateOneAndAfterEverySeed)
{
    std::uint32_t state = 1;  // a fresh process has not seeded yet
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(ReferenceDraw(state), crt::rand()) << "unseeded draw " << i;
    for (unsigned int seed : {1u, 0u, 12345u, 0x80000000u, 0xFFFFFFFFu}) {
        crt::srand(seed);
        state = seed;
        for (int i = 0; i < 1000; ++i)
            ASSERT_EQ(ReferenceDraw(state), crt::rand()) << "seed " << seed << " draw " << i;
    }
}

TEST(SplitPath, SplitsLikeTheOriginal)
{
    // Path, then drive|directory|file name|extension.
    char const *const cases[][2] = {
        {"D:\\scripts\\main.txt", "D:|\\scripts\\|main|.txt"},
        {"a/b.c/d", "|a/b.c/|d|"},
        {"main", "||main|"},
        {".hidden", "|||.hidden"},
        {"dir/sub/x.tar.gz", "|dir/sub/|x.tar|.gz"},
        {"mixed\\sep/name.", "|mixed\\sep/|name|."},
        {"C:rel.per", "C:||rel|.per"},
        {"c:/", "c:|/||"},
        {"/abs/path/", "|/abs/path/||"},
        {"1:x.per", "||1:x|.per"},  // only a letter makes a drive
        {"", "|||"},
    };
    for (auto const &c : cases) {
        CString drive("?"), dir("?"), fname("?"), ext("?");
        crt::SplitPath(c[0], drive, dir, fname, ext);
        EXPECT_EQ(c[1], std::string(drive.GetString()) + "|" + dir.GetString() + "|" + fname.GetString() + "|" + ext.GetString());
    }
}

}  // namespace
