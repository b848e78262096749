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

// Lengths around the size up to which a text is formatted in one pass, and
// a string formatted from its own text.
TEST(CString, FormatKeepsEveryLengthAndItsOwnText)
{
    for (std::size_t nLength : {254u, 255u, 256u, 257u, 511u}) {
        std::string const text(nLength, 'x');
        CString formatted;
        formatted.Format("%s", text.c_str());
        EXPECT_EQ(text, formatted.str()) << nLength;
        formatted.Format("<%s>", formatted.GetString());
        EXPECT_EQ("<" + text + ">", formatted.str()) << nLength;
    }
}

}  // namespace
