// AI_CParser::Parse: one script file into its command list, stored in the
// strategy under the name as given.
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

#include "../objects/AI_CCommand.h"
#include "../strategy/AI_CStrategy.h"
#include "AI_CParser.h"
#include "AI_FrontEnd.h"
#include "AI_Grammar.tab.h"

FILE *AI_OpenScript(char const *pszFilename)
{
    FILE *pFile = std::fopen(pszFilename, "r");
    struct stat status;
    if (pFile && fstat(fileno(pFile), &status) == 0 && S_ISDIR(status.st_mode)) {
        std::fclose(pFile);
        pFile = nullptr;
        errno = EISDIR;
    }
    if (!pFile)
        AfxThrowFileException(CFileException::ErrnoToException(errno), -1, pszFilename);
    return pFile;
}

// Loaded files are named after this one's directory and extension.
void AI_CParser::BeginFile(char const *pszFilename)
{
    CString strDrive, strDirectory, strName, strExtension;
    crt::SplitPath(pszFilename, strDrive, strDirectory, strName, strExtension);
    m_strDirectory = strDrive + strDirectory;
    m_strExtension = strExtension;
    AI_BeginFile(this, pszFilename);
}

AI_CCommandList *AI_CParser::Parse(char const *pszFilename)
{
    if (AI_CCommandList *pCommands = m_pStrategy->CommandList(pszFilename))
        return pCommands;

    BeginFile(pszFilename);

    // A parse that fails frees its partial tree exactly once.
    int nStatus;
    try {
        nStatus = AI_ReadScript(pszFilename, [] { return ai_yyparse(); });
    } catch (CException *pException) {
        DeleteObjects();
        DeleteStrings();
        throw pException;  // typed as the base class, as hosts catch it
    } catch (...) {
        DeleteObjects();
        DeleteStrings();
        throw;
    }

    // On acceptance the only object remembered is the file's command list.
    if (nStatus != 0 || m_lstObjects.IsEmpty()) {
        DeleteObjects();
        DeleteStrings();
        return nullptr;
    }
    AI_CCommandList *pCommands = static_cast<AI_CCommandList *>(m_lstObjects.GetHead());
    try {
        m_pStrategy->AddCommandList(pszFilename, pCommands);
    } catch (...) {
        DeleteObjects();  // no room to store the list: it goes with the parse
        DeleteStrings();
        throw;
    }
    m_lstObjects.RemoveAll();
    return pCommands;
}
