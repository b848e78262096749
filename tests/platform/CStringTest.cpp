// CString: value semantics, building, comparison and printf-style Format.
#include <gtest/gtest.h>

#include <string>

#include "platform/afx.h"

namespace {

TEST(CString, EmptyByDefaultAndFromNull)
{
    CString empty;
    CString fromNull(static_cast<char const *>(nullptr));
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_TRUE(fromNull.IsEmpty());
    EXPECT_EQ(0, fromNull.GetLength());
    EXPECT_STREQ("", fromNull.GetString());
    EXPECT_TRUE(empty == static_cast<char const *>(nullptr));

    CString assigned("x");
    assigned = static_cast<char const *>(nullptr);
    EXPECT_TRUE(assigned.IsEmpty());
}

TEST(CString, CopiesAreIndependent)
{
    CString a("abc");
    CString b = a;
    b += "def";
    EXPECT_EQ(a, "abc");
    EXPECT_EQ(b, "abcdef");
    CString c;
    c = b;
    b.Empty();
    EXPECT_TRUE(b.IsEmpty());
    EXPECT_EQ(c, "abcdef");
    EXPECT_EQ(6, c.GetLength());
}

TEST(CString, ConcatenationAndRepetition)
{
    CString a("abc");
    EXPECT_EQ(CString("x") + a + 'y', "xabcy");
    EXPECT_EQ("<" + a + ">", "<abc>");
    CString s;
    s += a;
    s += '-';
    s += CString("z");
    EXPECT_EQ(s, "abc-z");
    EXPECT_EQ(CString('*', 5), "*****");
    EXPECT_EQ(CString('*', 1), "*");
    EXPECT_TRUE(CString('*', 0).IsEmpty());
}

TEST(CString, ComparisonIsByteForByte)
{
    CString a("abc");
    EXPECT_TRUE(a == "abc");
    EXPECT_TRUE("abc" == a);
    EXPECT_TRUE(a == CString("abc"));
    EXPECT_TRUE(a != "ABC");
    EXPECT_TRUE("abc " != a);
    EXPECT_FALSE(a != CString("abc"));
    EXPECT_TRUE(CString("") < CString("a"));
    EXPECT_TRUE(CString("abc") < CString("abd"));
    EXPECT_TRUE(CString("ab") < CString("abc"));
    EXPECT_FALSE(CString("b") < CString("abc"));
    // Bytes compare unsigned: 0xE9 sorts after every ASCII letter.
    EXPECT_TRUE(CString("z") < CString("\xE9"));
}

TEST(CString, CharacterAccessAndConversion)
{
    CString a("abc");
    EXPECT_EQ('a', a[0]);
    EXPECT_EQ('b', a[1]);
    EXPECT_EQ('c', a.GetAt(2));
    char const *text = a;
    EXPECT_STREQ("abc", text);
    EXPECT_EQ(text, a.GetString());
}

TEST(CString, FormatIsPrintfStyle)
{
    CString s("old text");
    s.Format("%s(%d): %s", "a%d.txt", -12, "x");
    EXPECT_EQ(s, "a%d.txt(-12): x");
    s.Format("%05u|%x|%c|%%", 42u, 255u, 'q');
    EXPECT_EQ(s, "00042|ff|q|%");
    std::string longText(5000, 'q');
    s.Format("[%s]", longText.c_str());
    EXPECT_EQ(5002, s.GetLength());
    EXPECT_EQ(']', s[5001]);
    s.Format("%s", "");
    EXPECT_TRUE(s.IsEmpty());
}

}  // namespace
