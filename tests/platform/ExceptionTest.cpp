// Exceptions are heap objects thrown by pointer and caught as CException *.
#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "platform/afx.h"

namespace {

// Runs what should throw and hands back the object it threw.
template <class Thrower>
CException *Caught(Thrower thrower)
{
    try {
        thrower();
    } catch (CException *e) {
        return e;
    }
    return nullptr;
}

template <class Exception>
std::string Message(Exception &&e)
{
    char buffer[256] = "";
    e.GetErrorMessage(buffer, sizeof buffer);
    return buffer;
}

TEST(FileException, ThrownAsPointerWithCauseErrorNameAndMessage)
{
    CException *e = Caught([] { AfxThrowFileException(CFileException::accessDenied, EACCES, "scripts/main.per"); });
    ASSERT_NE(nullptr, e);
    ASSERT_EQ(RUNTIME_CLASS(CFileException), e->GetRuntimeClass());
    auto *file = static_cast<CFileException *>(e);
    EXPECT_EQ(CFileException::accessDenied, file->m_cause);
    EXPECT_EQ(EACCES, file->m_lOsError);
    EXPECT_EQ(file->m_strFileName, "scripts/main.per");
    char buffer[64];
    UINT help = 99;
    EXPECT_TRUE(e->GetErrorMessage(buffer, sizeof buffer, &help));
    EXPECT_STREQ("scripts/main.per: access to the file was denied.", buffer);
    EXPECT_EQ(0u, help);
    testing::internal::CaptureStderr();
    e->ReportError();
    EXPECT_EQ(std::string(buffer) + "\n", testing::internal::GetCapturedStderr());
    e->Delete();
}

TEST(FileException, EveryCauseHasItsOwnReasonAndErrnoItsCause)
{
    std::string const generic = Message(CFileException(CFileException::genericException));
    EXPECT_EQ("an unknown error occurred while accessing the file.", generic);  // no name, no prefix
    for (int cause = CFileException::fileNotFound; cause <= CFileException::endOfFile; ++cause)
        EXPECT_NE(generic, Message(CFileException(cause))) << cause;
    EXPECT_EQ(generic, Message(CFileException(99)));

    int const causes[][2] = {{ENOENT, CFileException::fileNotFound}, {EACCES, CFileException::accessDenied},
                             {ENOSPC, CFileException::diskFull},     {EIO, CFileException::hardIO},
                             {0, CFileException::genericException},  {ENOMEM, CFileException::genericException}};
    for (auto const &row : causes)
        EXPECT_EQ(row[1], CFileException::ErrnoToException(row[0])) << row[0];
}

TEST(FileException, MessageIsCutToTheBuffer)
{
    CFileException e(CFileException::fileNotFound, ENOENT, "nowhere.txt");
    char tiny[5] = "....";
    EXPECT_TRUE(e.GetErrorMessage(tiny, sizeof tiny));
    EXPECT_STREQ("nowh", tiny);
    EXPECT_FALSE(e.GetErrorMessage(nullptr, 10));
    char none[1] = {'x'};
    EXPECT_FALSE(e.GetErrorMessage(none, 0));
    EXPECT_EQ('x', none[0]);
}

TEST(MemoryException, ThrownAsPointerWithAMessage)
{
    CException *e = Caught([] { AfxThrowMemoryException(); });
    ASSERT_NE(nullptr, e);
    EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CMemoryException)));
    EXPECT_FALSE(e->IsKindOf(RUNTIME_CLASS(CFileException)));
    EXPECT_NE("", Message(*e));
    e->Delete();
}

}  // namespace
