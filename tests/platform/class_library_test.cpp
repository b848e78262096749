// The class-library layer: the behaviours the rest of the system relies on.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "platform/afx.h"

namespace {

TEST(CStringTest, ValueSemanticsAndComparison)
{
    CString empty;
    CString fromNull(static_cast<char const *>(nullptr));
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_TRUE(fromNull.IsEmpty());
    EXPECT_EQ(0, empty.GetLength());

    CString a("abc");
    CString b = a;
    b += "def";
    EXPECT_EQ(a, "abc");
    EXPECT_EQ(b, "abcdef");
    EXPECT_TRUE("abcdef" == b);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a != "ABC");  // byte for byte, case matters
    EXPECT_EQ(CString("x") + a + 'y', "xabcy");
    EXPECT_EQ(CString('*', 5), "*****");
    EXPECT_EQ(CString('*', 0), "");
    EXPECT_EQ(a[1], 'b');
    EXPECT_EQ(a.GetAt(2), 'c');
    EXPECT_STREQ(static_cast<char const *>(a), "abc");
    b.Empty();
    EXPECT_TRUE(b.IsEmpty());
    EXPECT_EQ(a, "abc");
}

TEST(CStringTest, FormatIsPrintfStyleAndKeepsPercentInArguments)
{
    CString s;
    s.Format("%s(%d): %s", "a%d.txt", -12, "x");
    EXPECT_EQ(s, "a%d.txt(-12): x");
    std::string longText(5000, 'q');
    s.Format("[%s]", longText.c_str());
    EXPECT_EQ(s.GetLength(), 5002);
}

struct Node : CObject
{
    DECLARE_DYNCREATE(Node)
public:
    int tag = 0;
};
IMPLEMENT_DYNCREATE(Node, CObject)

struct Leaf : Node
{
    DECLARE_DYNAMIC(Leaf)
};
IMPLEMENT_DYNAMIC(Leaf, Node)

TEST(RuntimeClassTest, RecordsFactoriesAndKinds)
{
    CRuntimeClass *record = RUNTIME_CLASS(Node);
    EXPECT_STREQ(record->m_lpszClassName, "Node");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(Node)));
    EXPECT_EQ(record->m_wSchema, 0xFFFFu);
    EXPECT_EQ(record->m_pBaseClass, RUNTIME_CLASS(CObject));

    CObject *made = record->CreateObject();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), RUNTIME_CLASS(Node));
    delete made;

    EXPECT_EQ(RUNTIME_CLASS(Leaf)->CreateObject(), nullptr);
    Leaf leaf;
    EXPECT_TRUE(leaf.IsKindOf(RUNTIME_CLASS(Node)));
    EXPECT_TRUE(leaf.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(Node().IsKindOf(RUNTIME_CLASS(Leaf)));
    EXPECT_TRUE(RUNTIME_CLASS(Leaf)->IsDerivedFrom(RUNTIME_CLASS(Node)));
}

TEST(ListTest, OrderFindRemoveAndAppendList)
{
    Node n[4];
    CTypedPtrList<CObList, Node *> list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    for (Node &node : n)
        list.AddTail(&node);
    EXPECT_EQ(list.GetCount(), 4);
    EXPECT_EQ(list.GetHead(), &n[0]);

    POSITION second = list.Find(&n[1]);
    ASSERT_NE(second, nullptr);
    list.RemoveAt(second);
    EXPECT_EQ(list.Find(&n[1]), nullptr);

    std::vector<Node *> seen;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        seen.push_back(list.GetNext(pos));
    EXPECT_EQ(seen, (std::vector<Node *>{&n[0], &n[2], &n[3]}));

    CTypedPtrList<CObList, Node *> other;
    other.AddTail(&n[1]);
    other.AddTail(&list);
    EXPECT_EQ(other.GetCount(), 4);
    EXPECT_EQ(list.GetCount(), 3);
    POSITION pos = other.GetHeadPosition();
    EXPECT_EQ(other.GetNext(pos), &n[1]);
    EXPECT_EQ(other.GetNext(pos), &n[0]);

    // Find after a position skips earlier occurrences.
    other.AddTail(&n[1]);
    POSITION first = other.Find(&n[1]);
    POSITION later = other.Find(&n[1], first);
    EXPECT_NE(later, nullptr);
    EXPECT_NE(later, first);
    other.RemoveAll();
    EXPECT_EQ(other.GetCount(), 0);
}

TEST(ArrayTest, AddReturnsIndex)
{
    CArray<CString, char const *> names;
    EXPECT_EQ(names.Add("a"), 0);
    EXPECT_EQ(names.Add("b"), 1);
    EXPECT_EQ(names.GetSize(), 2);
    EXPECT_EQ(names.GetAt(1), "b");
    names[0] = "z";
    EXPECT_EQ(names[0], "z");
    names.SetSize(5);
    EXPECT_EQ(names.GetSize(), 5);
    EXPECT_TRUE(names[4].IsEmpty());
    names.RemoveAll();
    EXPECT_EQ(names.GetSize(), 0);
}

template <class MAP, class KEY, class VALUE>
std::vector<KEY> Keys(MAP const &map)
{
    std::vector<KEY> keys;
    KEY key;
    VALUE value;
    for (POSITION pos = map.GetStartPosition(); pos;) {
        map.GetNextAssoc(pos, key, value);
        keys.push_back(key);
    }
    return keys;
}

TEST(HashKeyTest, StringHashUsesSignedBytes)
{
    EXPECT_EQ(HashKey<LPCTSTR>(""), 0u);
    EXPECT_EQ(HashKey<LPCTSTR>("a"), 97u);
    EXPECT_EQ(HashKey<LPCTSTR>("ab"), 97u * 33 + 98);
    // 0xE9 counts as -23.
    EXPECT_EQ(HashKey<LPCTSTR>("\xE9"), static_cast<UINT>(-23));
    EXPECT_EQ(HashKey<LPCTSTR>("a\xE9"), 97u * 33 - 23);
    EXPECT_EQ(HashKey<unsigned int>(4001), 250u);
}

TEST(MapTest, EnumerationIsBucketOrderThenNewestFirst)
{
    CMap<unsigned int, unsigned int, int, int> map;
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    map.SetAt(4001, 1);  // bucket 250 % 17 = 12
    map.SetAt(4002, 2);  // bucket 12, goes in front
    map.SetAt(4016, 3);  // bucket 251 % 17 = 13
    map.SetAt(16, 4);    // bucket 1
    auto keys = Keys<decltype(map), unsigned int, int>(map);
    EXPECT_EQ(keys, (std::vector<unsigned int>{16, 4002, 4001, 4016}));

    // Re-setting a key keeps its place.
    map.SetAt(4001, 10);
    EXPECT_EQ((Keys<decltype(map), unsigned int, int>(map)), keys);
    int value = 0;
    EXPECT_TRUE(map.Lookup(4001, value));
    EXPECT_EQ(value, 10);
    EXPECT_FALSE(map.Lookup(4003, value));

    EXPECT_TRUE(map.RemoveKey(4002));
    EXPECT_FALSE(map.RemoveKey(4002));
    EXPECT_EQ((Keys<decltype(map), unsigned int, int>(map)), (std::vector<unsigned int>{16, 4001, 4016}));
    EXPECT_EQ(map.GetCount(), 3);
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    map[7] = 70;
    EXPECT_EQ(map.GetCount(), 1);
}

TEST(MapTest, StringKeysHashedModulo17)
{
    CMap<CString, char const *, int, int> map;
    std::vector<std::string> names = {"main.txt", "common.txt", "a", "b", "Main.txt", "r\xE9sum\xE9.per"};
    for (size_t i = 0; i < names.size(); ++i)
        map.SetAt(names[i].c_str(), static_cast<int>(i));

    // The expected order, computed from the bucket rule.
    std::vector<std::vector<std::string>> buckets(17);
    for (auto const &name : names)
        buckets[HashKey<LPCTSTR>(name.c_str()) % 17].insert(buckets[HashKey<LPCTSTR>(name.c_str()) % 17].begin(), name);
    std::vector<std::string> expected;
    for (auto const &bucket : buckets)
        expected.insert(expected.end(), bucket.begin(), bucket.end());

    std::vector<std::string> actual;
    for (CString const &key : Keys<decltype(map), CString, int>(map))
        actual.push_back(key.GetString());
    EXPECT_EQ(actual, expected);
    int value = -1;
    EXPECT_TRUE(map.Lookup("Main.txt", value));
    EXPECT_EQ(value, 4);
    EXPECT_FALSE(map.Lookup("MAIN.TXT", value));
}

TEST(MapTest, ManyEntriesStayFindableAndOrdered)
{
    CMap<unsigned int, unsigned int, int, int> map;
    unsigned int const n = 100000;
    for (unsigned int sid = 4001; sid < 4001 + n; ++sid)
        map.SetAt(sid, static_cast<int>(sid));
    EXPECT_EQ(map.GetCount(), static_cast<INT_PTR>(n));
    int value = 0;
    EXPECT_TRUE(map.Lookup(4001 + n / 2, value));
    EXPECT_EQ(value, static_cast<int>(4001 + n / 2));
    // Buckets never decrease along the enumeration, and inside one bucket the
    // most recent key comes first.
    unsigned int key = 0, previous = 0;
    UINT previousBucket = 0;
    bool first = true;
    for (POSITION pos = map.GetStartPosition(); pos;) {
        map.GetNextAssoc(pos, key, value);
        UINT bucket = (key >> 4) % 17;
        if (!first) {
            ASSERT_GE(bucket, previousBucket);
            if (bucket == previousBucket) {
                ASSERT_LT(key, previous);
            }
        }
        first = false;
        previous = key;
        previousBucket = bucket;
    }
}

TEST(ExceptionTest, FileExceptionNamesFileAndReason)
{
    try {
        AfxThrowFileException(CFileException::ErrnoToException(ENOENT), -1, "nowhere.txt");
        FAIL() << "no exception";
    } catch (CException *e) {
        ASSERT_TRUE(e->IsKindOf(RUNTIME_CLASS(CFileException)));
        auto *file = static_cast<CFileException *>(e);
        EXPECT_EQ(file->m_cause, CFileException::fileNotFound);
        EXPECT_EQ(file->m_lOsError, -1);
        EXPECT_EQ(file->m_strFileName, "nowhere.txt");
        char buffer[256];
        UINT help = 99;
        EXPECT_TRUE(e->GetErrorMessage(buffer, sizeof buffer, &help));
        EXPECT_EQ(help, 0u);
        EXPECT_STREQ(buffer, "nowhere.txt: the file was not found.");
        char tiny[5];
        EXPECT_TRUE(e->GetErrorMessage(tiny, sizeof tiny));
        EXPECT_STREQ(tiny, "nowh");
        e->Delete();
    }
    EXPECT_EQ(CFileException::ErrnoToException(EACCES), CFileException::accessDenied);
    EXPECT_EQ(CFileException::ErrnoToException(0), CFileException::genericException);
}

TEST(ExceptionTest, MemoryExceptionIsACException)
{
    try {
        AfxThrowMemoryException();
    } catch (CException *e) {
        EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CMemoryException)));
        delete e;
    }
}

TEST(CrtTest, RandIsTheClassicGenerator)
{
    // State starts at 1 in a fresh process.
    EXPECT_EQ(crt::rand(), 41);
    EXPECT_EQ(crt::rand(), 18467);
    EXPECT_EQ(crt::rand(), 6334);
    crt::srand(1);
    EXPECT_EQ(crt::rand(), 41);
    crt::srand(0);
    EXPECT_EQ(crt::rand(), 38);
    for (int i = 0; i < 10000; ++i) {
        int r = crt::rand();
        ASSERT_GE(r, 0);
        ASSERT_LE(r, 32767);
    }
}

TEST(CrtTest, SplitPathLikeTheOriginal)
{
    struct Case { char const *path, *drive, *dir, *fname, *ext; };
    Case const cases[] = {
        {"D:\\scripts\\main.txt", "D:", "\\scripts\\", "main", ".txt"},
        {"main", "", "", "main", ""},
        {"dir/sub/x.tar.gz", "", "dir/sub/", "x.tar", ".gz"},
        {"a.b/c", "", "a.b/", "c", ""},
        {"mixed\\sep/name.", "", "mixed\\sep/", "name", "."},
        {".profile", "", "", "", ".profile"},
        {"C:rel.per", "C:", "", "rel", ".per"},
        {"", "", "", "", ""},
    };
    for (Case const &c : cases) {
        CString drive, dir, fname, ext;
        crt::SplitPath(c.path, drive, dir, fname, ext);
        EXPECT_EQ(drive, c.drive) << c.path;
        EXPECT_EQ(dir, c.dir) << c.path;
        EXPECT_EQ(fname, c.fname) << c.path;
        EXPECT_EQ(ext, c.ext) << c.path;
    }
}

}  // namespace
