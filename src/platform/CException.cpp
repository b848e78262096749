#include "CException.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)

CException::~CException() = default;

BOOL CException::CopyMessage(LPCTSTR pszMessage, LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext)
{
    if (pnHelpContext)
        *pnHelpContext = 0;
    if (!lpszError || nMaxError == 0)
        return FALSE;
    std::strncpy(lpszError, pszMessage, nMaxError);
    lpszError[nMaxError - 1] = '\0';
    return TRUE;
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext)
{
    if (pnHelpContext)
        *pnHelpContext = 0;
    if (lpszError && nMaxError)
        *lpszError = '\0';
    return FALSE;
}

int CException::ReportError(UINT, UINT)
{
    char message[512];
    if (!GetErrorMessage(message, sizeof message))
        std::strcpy(message, "No error message is available.");
    std::fprintf(stderr, "%s\n", message);
    return 0;
}

void CException::Delete() { delete this; }

namespace {

int const kReservedExceptions = 4;
alignas(CMemoryException) unsigned char g_aReserve[kReservedExceptions][sizeof(CMemoryException)];
bool g_abReserveTaken[kReservedExceptions];

}  // namespace

void *CMemoryException::operator new(std::size_t nSize) noexcept
{
    if (void *p = ::operator new(nSize, std::nothrow))
        return p;
    for (int i = 0; i < kReservedExceptions; ++i)
        if (!g_abReserveTaken[i]) {
            g_abReserveTaken[i] = true;
            return g_aReserve[i];
        }
    return nullptr;
}

void CMemoryException::operator delete(void *p) noexcept
{
    for (int i = 0; i < kReservedExceptions; ++i)
        if (p == g_aReserve[i]) {
            g_abReserveTaken[i] = false;
            return;
        }
    ::operator delete(p);
}

BOOL CMemoryException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext)
{
    return CopyMessage("Out of memory.", lpszError, nMaxError, pnHelpContext);
}

CFileException::CFileException(int cause, LONG lOsError, LPCTSTR lpszFileName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszFileName)
{}

int CFileException::ErrnoToException(int nErrno)
{
    static struct
    {
        int nErrno;
        int cause;
    } const table[] = {
        {ENOENT, fileNotFound},     {ENXIO, fileNotFound},
        {ENOTDIR, badPath},         {ENAMETOOLONG, badPath},
        {ELOOP, badPath},           {EMFILE, tooManyOpenFiles},
        {ENFILE, tooManyOpenFiles}, {EACCES, accessDenied},
        {EPERM, accessDenied},      {EROFS, accessDenied},
        {EISDIR, accessDenied},     {EBADF, invalidFile},
        {EBUSY, sharingViolation},  {ETXTBSY, sharingViolation},
        {EDEADLK, lockViolation},   {ENOLCK, lockViolation},
        {ESPIPE, badSeek},          {EIO, hardIO},
        {EINVAL, hardIO},           {ENOSPC, diskFull},
        {EFBIG, diskFull},          {EDQUOT, diskFull},
    };
    for (auto const &row : table)
        if (row.nErrno == nErrno)
            return row.cause;
    return genericException;
}

BOOL CFileException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext)
{
    static char const *const reasons[] = {
        "no error occurred.",
        "an unknown error occurred while accessing the file.",
        "the file was not found.",
        "the path is invalid.",
        "the file could not be opened because there are too many open files.",
        "access to the file was denied.",
        "an invalid file handle was associated with the file.",
        "the file could not be removed because it is the current directory.",
        "the file could not be created because the directory is full.",
        "a seek failed on the file.",
        "a hardware I/O error was reported while accessing the file.",
        "a sharing violation occurred while accessing the file.",
        "a locking violation occurred while accessing the file.",
        "the disk is full.",
        "an attempt was made to access the file past its end.",
    };
    int const nReasons = static_cast<int>(sizeof reasons / sizeof *reasons);
    char const *reason = (m_cause >= 0 && m_cause < nReasons) ? reasons[m_cause] : reasons[genericException];
    CString message(reason);
    if (!m_strFileName.IsEmpty())
        message.Format("%s: %s", m_strFileName.GetString(), reason);
    return CopyMessage(message, lpszError, nMaxError, pnHelpContext);
}

void AfxThrowFileException(int cause, LONG lOsError, LPCTSTR lpszFileName)
{
    throw new CFileException(cause, lOsError, lpszFileName);
}

void AfxThrowMemoryException() { throw new CMemoryException; }
