// The original C runtime's random generator and path splitter.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/afx.h"

namespace {

// The original runtime's well-known sequences: unseeded (state 1), and
// after seeds at the ends of the range.
TEST(Rand, FollowsTheOriginalSequencesFromStateOneAndAfterEverySeed)
{
    std::tuple<bool, unsigned int, std::vector<int>> const rows[] = {
        {false, 0, {41, 18467, 6334, 26500, 19169, 15724, 11478, 29358, 26962, 24464}},
        {true, 1, {41, 18467, 6334, 26500, 19169}},
        {true, 0, {38, 7719, 21238, 2437, 8855}},
        {true, 0xFFFFFFFFu, {35, 29739, 3374, 11141, 31308}},
    };
    for (auto const &[bSeed, nSeed, expectedDraws] : rows) {
        if (bSeed)
            crt::srand(nSeed);
        std::vector<int> draws;
        for (std::size_t i = 0; i < expectedDraws.size(); ++i)
            draws.push_back(crt::rand());
        EXPECT_EQ(expectedDraws, draws) << nSeed;
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
        EXPECT_EQ(c[1],
                  std::string(drive.GetString()) + "|" + dir.GetString() + "|" + fname.GetString() + "|"
                      + ext.GetString());
    }
}

}  // namespace
