// The class library's exceptions. They are thrown as pointers to heap
// objects (`throw new CFileException(...)`); whoever catches one last
// deletes it, with `delete` or with Delete().
#ifndef STRATAGEM_PLATFORM_CEXCEPTION_H
#define STRATAGEM_PLATFORM_CEXCEPTION_H

#include "CObject.h"
#include "CString.h"
#include "memory.h"

class STRATAGEM_API CException : public CObject
{
    DECLARE_DYNAMIC(CException)
public:
    CException() = default;
    ~CException() override;

    // Copies the message into the buffer (cut to nMaxError - 1 bytes and
    // terminated); answers nonzero when there is a message.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr);
    // Writes the message to the standard error stream; answers 0.
    virtual int ReportError(UINT nType = 0, UINT nMessageID = 0);

    void Delete();

protected:
    // Shared by the subclasses: copy a message into a caller's buffer.
    static BOOL CopyMessage(LPCTSTR pszMessage, LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext);
};

class STRATAGEM_API CMemoryException : public CException
{
    DECLARE_DYNAMIC(CMemoryException)
public:
    CMemoryException() = default;
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) override;

    // Memory exceptions are made when the heap may have no room left: when
    // it has none, one of a few held in reserve serves.
    static void *operator new(std::size_t nSize) noexcept;
    static void operator delete(void *p) noexcept;
};

class STRATAGEM_API CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)
public:
    enum
    {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = none, LONG lOsError = -1, LPCTSTR lpszFileName = nullptr);

    // The cause that an errno value stands for.
    static int ErrnoToException(int nErrno);

    // "<file>: <reason>", for example "main.txt: the file was not found.";
    // the reason alone when no file name was given.
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) override;

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

[[noreturn]] STRATAGEM_API void AfxThrowFileException(int cause, LONG lOsError = -1, LPCTSTR lpszFileName = nullptr);

#endif
