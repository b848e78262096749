// Exceptions are heap objects thrown by pointer and caught as CException *.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "platform/afx.h"

namespace {

TEST(FileException, ThrownAsPointerWithCauseErrorAndName)
{
    try {
        AfxThrowFileException(CFileException::fileNotFound, ENOENT, "nowhere.txt");
        FAIL() << "nothing thrown";
    } catch (CException *e) {
        ASSERT_TRUE(e->IsKindOf(RUNTIME_CLASS(CFileException)));
        EXPECT_EQ(RUNTIME_CLASS(CFileException), e->GetRuntimeClass());
        auto *file = static_cast<CFileException *>(e);
        EXPECT_EQ(CFileException::fileNotFound, file->m_cause);
        EXPECT_EQ(ENOENT, file->m_lOsError);
        EXPECT_EQ(file->m_strFileName, "nowhere.txt");
        e->Delete();
    }
}

TEST(FileException, DefaultsWithoutErrorAndName)
{
    try {
        AfxThrowFileException(CFileException::genericException);
    } catch (CException *e) {
        auto *file = static_cast<CFileException *>(e);
        EXPECT_EQ(-1, file->m_lOsError);
        EXPECT_TRUE(file->m_strFileName.IsEmpty());
        char buffer[128];
        EXPECT_TRUE(e->GetErrorMessage(buffer, sizeof buffer));
        EXPECT_STREQ("an unknown error occurred while accessing the file.", buffer);
        delete e;
    }
}

TEST(FileException, MessageNamesTheFileAndTheReason)
{
    CFileException e(CFileException::accessDenied, EACCES, "scripts/main.per");
    char buffer[256];
    UINT help = 99;
    EXPECT_TRUE(e.GetErrorMessage(buffer, sizeof buffer, &help));
    EXPECT_EQ(0u, help);
    EXPECT_STREQ("scripts/main.per: access to the file was denied.", buffer);

    CFileException missing(CFileException::fileNotFound, ENOENT, "main.per");
    EXPECT_TRUE(missing.GetErrorMessage(buffer, sizeof buffer));
    EXPECT_STREQ("main.per: the file was not found.", buffer);

    // Every cause has its own reason; an unknown cause reads as generic.
    CFileException generic(CFileException::genericException, -1, "x");
    char genericText[256];
    generic.GetErrorMessage(genericText, sizeof genericText);
    for (int cause = CFileException::fileNotFound; cause <= CFileException::endOfFile; ++cause) {
        CFileException other(cause, -1, "x");
        other.GetErrorMessage(buffer, sizeof buffer);
        EXPECT_STRNE(genericText, buffer) << cause;
    }
    CFileException unknown(99, -1, "x");
    unknown.GetErrorMessage(buffer, sizeof buffer);
    EXPECT_STREQ(genericText, buffer);
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

TEST(FileException, ErrnoMapsToCause)
{
    struct Row
    {
        int nErrno;
        int cause;
    };
    Row const rows[] = {
        {ENOENT, CFileException::fileNotFound},      {EACCES, CFileException::accessDenied},
        {EPERM, CFileException::accessDenied},       {EROFS, CFileException::accessDenied},
        {EMFILE, CFileException::tooManyOpenFiles},  {ENFILE, CFileException::tooManyOpenFiles},
        {ENOSPC, CFileException::diskFull},          {ENOTDIR, CFileException::badPath},
        {ENAMETOOLONG, CFileException::badPath},     {EBADF, CFileException::invalidFile},
        {EIO, CFileException::hardIO},               {ESPIPE, CFileException::badSeek},
        {0, CFileException::genericException},       {ENOMEM, CFileException::genericException},
        {-1, CFileException::genericException},
    };
    for (Row const &row : rows)
        EXPECT_EQ(row.cause, CFileException::ErrnoToException(row.nErrno)) << row.nErrno;
}

TEST(MemoryException, ThrownAsPointer)
{
    try {
        AfxThrowMemoryException();
        FAIL() << "nothing thrown";
    } catch (CException *e) {
        EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CMemoryException)));
        EXPECT_FALSE(e->IsKindOf(RUNTIME_CLASS(CFileException)));
        char buffer[64];
        EXPECT_TRUE(e->GetErrorMessage(buffer, sizeof buffer));
        EXPECT_STRNE("", buffer);
        e->Delete();
    }
}

TEST(Exception, BaseHasNoMessage)
{
    CException *e = new CException;
    char buffer[16] = "untouched";
    UINT help = 5;
    EXPECT_FALSE(e->GetErrorMessage(buffer, sizeof buffer, &help));
    EXPECT_STREQ("", buffer);
    EXPECT_EQ(0u, help);
    EXPECT_EQ(RUNTIME_CLASS(CObject), RUNTIME_CLASS(CException)->m_pBaseClass);
    e->Delete();
}

TEST(Exception, ReportErrorWritesTheMessageToStandardError)
{
    CFileException e(CFileException::diskFull, ENOSPC, "out.per");
    testing::internal::CaptureStderr();
    e.ReportError();
    EXPECT_EQ("out.per: the disk is full.\n", testing::internal::GetCapturedStderr());
}

}  // namespace
