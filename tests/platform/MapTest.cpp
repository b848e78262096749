// CMap: lookups, and the enumeration order that listings show - 17 buckets
// by default, the newest entry first in its bucket, buckets in increasing
// index.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/afx.h"

namespace {

typedef CMap<unsigned int, unsigned int, int, int> SidMap;
typedef CMap<CString, char const *, int, int> NameMap;

// The string hash, written out independently: h = h * 33 + c over signed
// bytes, from 0, in unsigned 32-bit arithmetic.
unsigned int ExpectedStringHash(std::string const &text)
{
    unsigned int h = 0;
    for (char c : text)
        h = h * 33u + static_cast<unsigned int>(static_cast<int>(static_cast<signed char>(c)));
    return h;
}

template <class MAP, class KEY, class VALUE>
std::vector<KEY> Keys(MAP const &map)
{
    std::vector<KEY> keys;
    KEY key{};
    VALUE value{};
    for (POSITION pos = map.GetStartPosition(); pos;) {
        map.GetNextAssoc(pos, key, value);
        keys.push_back(key);
    }
    return keys;
}

std::vector<unsigned int> SidKeys(SidMap const &map) { return Keys<SidMap, unsigned int, int>(map); }

std::vector<std::string> NameKeys(NameMap const &map)
{
    std::vector<std::string> names;
    for (CString const &key : Keys<NameMap, CString, int>(map))
        names.push_back(key.GetString());
    return names;
}

TEST(HashKey, UnsignedKeyIsShiftedRightByFour)
{
    EXPECT_EQ(250u, HashKey<unsigned int>(4001));
    EXPECT_EQ(250u, HashKey<unsigned int>(4002));
    EXPECT_EQ(251u, HashKey<unsigned int>(4016));
    EXPECT_EQ(0u, HashKey<unsigned int>(15));
    EXPECT_EQ(0x0FFFFFFFu, HashKey<unsigned int>(0xFFFFFFFFu));
}

TEST(HashKey, StringKeyUsesSignedBytes)
{
    EXPECT_EQ(0u, HashKey<LPCTSTR>(""));
    EXPECT_EQ(97u, HashKey<LPCTSTR>("a"));
    EXPECT_EQ(97u * 33 + 98, HashKey<LPCTSTR>("ab"));
    EXPECT_EQ(static_cast<unsigned int>(-23), HashKey<LPCTSTR>("\xE9"));  // 0xE9 counts as -23
    EXPECT_EQ(97u * 33 - 23, HashKey<LPCTSTR>("a\xE9"));
    for (std::string text : {"main.txt", "r\xE9sum\xE9.per", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF",
                             "a/very/long/path/name/that/overflows/thirty-two/bits.per"})
        EXPECT_EQ(ExpectedStringHash(text), HashKey<LPCTSTR>(text.c_str())) << text;
    EXPECT_EQ(HashKey<LPCTSTR>("main.txt"), HashKey<CString const &>(CString("main.txt")));
}

TEST(Map, EmptyMapAnswersNothing)
{
    SidMap map;
    int value = 123;
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(0, map.GetCount());
    EXPECT_EQ(nullptr, map.GetStartPosition());
    EXPECT_FALSE(map.Lookup(4001, value));
    EXPECT_EQ(123, value);
    EXPECT_FALSE(map.RemoveKey(4001));
}

TEST(Map, SidsEnumerateByBucketThenNewestFirst)
{
    SidMap map;
    map.SetAt(4001, 1);  // bucket 250 % 17 = 12
    map.SetAt(4002, 2);  // bucket 12 as well, goes in front
    map.SetAt(4016, 3);  // bucket 251 % 17 = 13
    map.SetAt(16, 4);    // bucket 1
    map.SetAt(0, 5);     // bucket 0
    EXPECT_EQ((std::vector<unsigned int>{0, 16, 4002, 4001, 4016}), SidKeys(map));
    EXPECT_EQ(5, map.GetCount());

    // Setting an existing key changes its value in place.
    map.SetAt(4001, 10);
    map[4016] = 30;
    EXPECT_EQ((std::vector<unsigned int>{0, 16, 4002, 4001, 4016}), SidKeys(map));
    int value = 0;
    EXPECT_TRUE(map.Lookup(4001, value));
    EXPECT_EQ(10, value);
    EXPECT_TRUE(map.Lookup(4016, value));
    EXPECT_EQ(30, value);
    EXPECT_FALSE(map.Lookup(4003, value));
}

TEST(Map, IndexOperatorInsertsADefaultValue)
{
    SidMap map;
    EXPECT_EQ(0, map[7]);
    EXPECT_EQ(1, map.GetCount());
    map[7] += 5;
    int value = 0;
    EXPECT_TRUE(map.Lookup(7, value));
    EXPECT_EQ(5, value);
}

TEST(Map, RemovalKeepsTheOrderOfTheRest)
{
    SidMap map;
    for (unsigned int sid : {4001u, 4002u, 4003u, 4016u})
        map.SetAt(sid, 1);
    EXPECT_EQ((std::vector<unsigned int>{4003, 4002, 4001, 4016}), SidKeys(map));
    EXPECT_TRUE(map.RemoveKey(4002));
    EXPECT_FALSE(map.RemoveKey(4002));
    EXPECT_EQ((std::vector<unsigned int>{4003, 4001, 4016}), SidKeys(map));
    EXPECT_TRUE(map.RemoveKey(4003));  // the front of a chain
    EXPECT_TRUE(map.RemoveKey(4016));  // alone in its bucket
    EXPECT_EQ((std::vector<unsigned int>{4001}), SidKeys(map));
    map.SetAt(4002, 2);
    EXPECT_EQ((std::vector<unsigned int>{4002, 4001}), SidKeys(map));

    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(nullptr, map.GetStartPosition());
    map.SetAt(4001, 1);
    EXPECT_EQ((std::vector<unsigned int>{4001}), SidKeys(map));
}

TEST(Map, InitHashTableChangesTheBucketCount)
{
    SidMap map;
    map.InitHashTable(7);
    // 4001 and 4016 hash to 250 and 251: buckets 5 and 6 of 7; 96 -> 6 -> bucket 6.
    map.SetAt(4016, 1);
    map.SetAt(4001, 1);
    map.SetAt(96, 1);
    EXPECT_EQ((std::vector<unsigned int>{4001, 96, 4016}), SidKeys(map));
}

TEST(Map, StringKeysEnumerateByTheirHashModulo17)
{
    std::vector<std::string> const names = {"main.txt", "common.txt", "a", "b", "Main.txt",
                                            "r\xE9sum\xE9.per", "\xC3\xA9t\xC3\xA9.per", "dir/x.per"};
    NameMap map;
    for (size_t i = 0; i < names.size(); ++i)
        map.SetAt(names[i].c_str(), static_cast<int>(i));

    std::vector<std::vector<std::string>> buckets(17);
    for (std::string const &name : names) {
        auto &bucket = buckets[ExpectedStringHash(name) % 17];
        bucket.insert(bucket.begin(), name);
    }
    std::vector<std::string> expected;
    for (auto const &bucket : buckets)
        expected.insert(expected.end(), bucket.begin(), bucket.end());
    EXPECT_EQ(expected, NameKeys(map));

    int value = -1;
    EXPECT_TRUE(map.Lookup("Main.txt", value));
    EXPECT_EQ(4, value);
    EXPECT_FALSE(map.Lookup("MAIN.TXT", value));
    EXPECT_TRUE(map.Lookup("r\xE9sum\xE9.per", value));
    EXPECT_EQ(5, value);
}

TEST(Map, KnownStringOrder)
{
    // "ab" hashes to 3299 (bucket 1), "a" to 97 (bucket 12), "b" to 98
    // (bucket 13), "a\xE9" to 97 * 33 - 23 = 3178 (bucket 16; taken as an
    // unsigned byte it would be 3434, bucket 0).
    NameMap map;
    for (char const *name : {"b", "a", "a\xE9", "ab"})
        map.SetAt(name, 0);
    EXPECT_EQ((std::vector<std::string>{"ab", "a", "b", "a\xE9"}), NameKeys(map));
}

TEST(Map, HundredThousandEntriesStayFindable)
{
    SidMap map;
    unsigned int const n = 100000;
    for (unsigned int i = 0; i < n; ++i)
        map.SetAt(4001 + i, static_cast<int>(i));
    EXPECT_EQ(static_cast<INT_PTR>(n), map.GetCount());
    for (unsigned int i = 0; i < n; ++i) {
        int value = -1;
        ASSERT_TRUE(map.Lookup(4001 + i, value)) << i;
        ASSERT_EQ(static_cast<int>(i), value);
    }
    int value = 0;
    EXPECT_FALSE(map.Lookup(4000, value));
    EXPECT_FALSE(map.Lookup(4001 + n, value));
    for (unsigned int i = 0; i < n; i += 2)
        ASSERT_TRUE(map.RemoveKey(4001 + i));
    EXPECT_EQ(static_cast<INT_PTR>(n / 2), map.GetCount());
    EXPECT_FALSE(map.Lookup(4001, value));
    EXPECT_TRUE(map.Lookup(4002, value));

    // The enumeration still visits every entry once, buckets never going
    // back, newer (larger) keys first inside a bucket.
    unsigned int visited = 0, key = 0, previous = 0, previousBucket = 0;
    for (POSITION pos = map.GetStartPosition(); pos; ++visited) {
        map.GetNextAssoc(pos, key, value);
        unsigned int const bucket = (key >> 4) % 17;
        if (visited > 0) {
            ASSERT_GE(bucket, previousBucket);
            if (bucket == previousBucket) {
                ASSERT_LT(key, previous);
            }
        }
        previous = key;
        previousBucket = bucket;
    }
    EXPECT_EQ(n / 2, visited);
}

TEST(Map, HundredThousandStringKeysStayFindable)
{
    NameMap map;
    int const n = 100000;
    for (int i = 0; i < n; ++i)
        map.SetAt(("file" + std::to_string(i) + ".per").c_str(), i);
    EXPECT_EQ(n, map.GetCount());
    for (int i = 0; i < n; i += 7) {
        int value = -1;
        ASSERT_TRUE(map.Lookup(("file" + std::to_string(i) + ".per").c_str(), value));
        ASSERT_EQ(i, value);
    }
    int value = 0;
    EXPECT_FALSE(map.Lookup("file100000.per", value));
}

}  // namespace
