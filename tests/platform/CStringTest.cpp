// CString: value semantics, repetition, comparison and Format.
#include <gtest/gtest.h>

#include <string>

#include "platform/afx.h"

namespace {

TEST(CString, ValueSemanticsRepetitionAndFormat)
{
    CString a("abc");
    CString b = a;
    b += "def";
    EXPECT_EQ(a, "abc");
    EXPECT_EQ(b, "abcdef");
    EXPECT_TRUE(CString(static_cast<char const *>(nullptr)).IsEmpty());
    EXPECT_EQ(CString('*', 5), "*****");
    EXPECT_TRUE(CString('*', 0).IsEmpty());
    EXPECT_TRUE(CString("abc") != "abc ");

    std::string const longText(5000, 'q');  // longer than any fixed buffer
    a.Format("%s(%d): %05u|%x|%c|%%[%s]", "a%d.txt", -12, 42u, 255u, 'q', longText.c_str());
    EXPECT_EQ(a, ("a%d.txt(-12): 00042|ff|q|%[" + longText + "]").c_str());
    a.Format("%s", "");
    EXPECT_TRUE(a.IsEmpty());
}

}  // namespace
