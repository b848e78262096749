// CMap: lookups, and the enumeration order that listings show - 17 buckets,
// the newest entry first in its bucket, buckets in increasing index.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/afx.h"

namespace {

typedef CMap<unsigned int, unsigned int, int, int> SidMap;
typedef CMap<CString, char const *, int, int> NameMap;

// The string hash written out independently: h = h * 33 + c over signed
// bytes, from 0, in unsigned 32-bit arithmetic.
unsigned int ExpectedStringHash(std::string const &text)
{
    unsigned int h = 0;
    for (char c : text)
        h = h * 33u + static_cast<unsigned int>(static_cast<int>(static_cast<signed char>(c)));
    return h;
}

std::string Text(unsigned int sid) { return std::to_string(sid); }
std::string Text(CString const &name) { return name.GetString(); }

// The keys in enumeration order, as text.
template <class KEY, class ARG_KEY>
std::vector<std::string> Keys(CMap<KEY, ARG_KEY, int, int> const &map)
{
    std::vector<std::string> keys;
    KEY key {};
    int value = 0;
    for (POSITION pos = map.GetStartPosition(); pos;) {
        map.GetNextAssoc(pos, key, value);
        keys.push_back(Text(key));
    }
    return keys;
}

TEST(Map, SidsEnumerateByBucketThenNewestFirst)
{
    SidMap map;
    for (unsigned int sid : {4001u, 4002u, 4003u})  // 4001 >> 4 = 250, bucket 250 % 17 = 12
        map.SetAt(sid, 1);
    map.SetAt(4016, 3);  // bucket 13
    map.SetAt(16, 4);    // bucket 1
    map.SetAt(0, 5);     // bucket 0
    EXPECT_EQ((std::vector<std::string> {"0", "16", "4003", "4002", "4001", "4016"}), Keys(map));

    // Setting an existing key changes its value in place.
    map.SetAt(4001, 10);
    map[4016] += 30;
    EXPECT_EQ((std::vector<std::string> {"0", "16", "4003", "4002", "4001", "4016"}), Keys(map));
    int value = 0;
    EXPECT_TRUE(map.Lookup(4001, value));
    EXPECT_EQ(10, value);
    EXPECT_TRUE(map.Lookup(4016, value));
    EXPECT_EQ(33, value);

    EXPECT_TRUE(map.RemoveKey(4002));  // the middle of a chain
    EXPECT_FALSE(map.RemoveKey(4002));
    EXPECT_TRUE(map.RemoveKey(4003));  // the front of a chain
    EXPECT_TRUE(map.RemoveKey(4016));  // alone in its bucket
    map.SetAt(4002, 2);
    EXPECT_EQ((std::vector<std::string> {"0", "16", "4002", "4001"}), Keys(map));
    map.RemoveAll();
    EXPECT_EQ(nullptr, map.GetStartPosition());
    EXPECT_FALSE(map.Lookup(4001, value));
    map.SetAt(4001, 1);
    EXPECT_EQ((std::vector<std::string> {"4001"}), Keys(map));
}

TEST(Map, StringKeysEnumerateByTheirHashModulo17)
{
    // Worked out by hand: "ab" is 3299 (bucket 1), "a" 97 (12), "b" 98 (13),
    // "a\xE9" 97 * 33 - 23 = 3178 (16; as an unsigned byte it would be 0).
    NameMap known;
    for (char const *name : {"b", "a", "a\xE9", "ab"})
        known.SetAt(name, 0);
    EXPECT_EQ((std::vector<std::string> {"ab", "a", "b", "a\xE9"}), Keys(known));

    std::vector<std::string> const names
        = {"main.txt", "common.txt", "a", "b", "Main.txt", "r\xE9sum\xE9.per", "\xC3\xA9t\xC3\xA9.per", "dir/x.per"};
    NameMap map;
    std::vector<std::vector<std::string>> buckets(17);
    for (size_t i = 0; i < names.size(); ++i) {
        map.SetAt(names[i].c_str(), static_cast<int>(i));
        auto &bucket = buckets[ExpectedStringHash(names[i]) % 17];
        bucket.insert(bucket.begin(), names[i]);
    }
    std::vector<std::string> expected;
    for (auto const &bucket : buckets)
        expected.insert(expected.end(), bucket.begin(), bucket.end());
    EXPECT_EQ(expected, Keys(map));
    int value = -1;
    EXPECT_TRUE(map.Lookup("Main.txt", value));
    EXPECT_EQ(4, value);
    EXPECT_FALSE(map.Lookup("MAIN.TXT", value));
}

}  // namespace
