#include "AI_CStrategy.h"

#include <memory>

#include "../objects/AI_CCommand.h"

IMPLEMENT_DYNCREATE(AI_CStrategy, AI_CObject)

AI_CStrategy::AI_CStrategy() : m_gsSettings(AI_gsSettings) {}

AI_CStrategy::AI_CStrategy(char const *pszName, char const *pszFilename, AI_GameSettings const &gsSettings)
    : m_strName(pszName), m_strFilename(pszFilename), m_gsSettings(gsSettings)
{}

AI_CStrategy::~AI_CStrategy()
{
    DestroyConstants();
    DestroyCommandLists();
    m_mapConstants.RemoveAll();
    m_mapCommandLists.RemoveAll();
}

int AI_CStrategy::Define(unsigned int nSID) const { return AI_DefineFor(m_gsSettings, nSID); }

// ---- extra files ----------------------------------------------------------

int AI_CStrategy::AddFilename(char const *pszFilename) { return m_aFilenames.Add(pszFilename); }

char const *AI_CStrategy::Filename(int nIndex) const
{
    if (nIndex < 0 || nIndex >= m_aFilenames.GetSize())
        return nullptr;
    return m_aFilenames[nIndex];
}

void AI_CStrategy::DeleteFilenames() { m_aFilenames.RemoveAll(); }

// ---- constants --------------------------------------------------------------

int AI_CStrategy::Constant(unsigned int nSID, int nIndex) const
{
    CArray<int, int> *pValues = nullptr;
    if (!m_mapConstants.Lookup(nSID, pValues) || nIndex < 0 || nIndex >= pValues->GetSize())
        return AI_NO_VALUE;
    return pValues->GetAt(nIndex);
}

void AI_CStrategy::AddConstantValue(unsigned int nSID, int nValue)
{
    CArray<int, int> *pValues = nullptr;
    if (!m_mapConstants.Lookup(nSID, pValues)) {
        std::unique_ptr<CArray<int, int>> pNew(platform::Allocating([] { return new CArray<int, int>; }));
        m_mapConstants.SetAt(nSID, pNew.get());
        pValues = pNew.release();
    }
    pValues->Add(nValue);
}

int AI_CStrategy::DeleteConstant(unsigned int nSID)
{
    CArray<int, int> *pValues = nullptr;
    if (!m_mapConstants.Lookup(nSID, pValues))
        return 0;
    delete pValues;
    m_mapConstants.RemoveKey(nSID);
    return 1;
}

void AI_CStrategy::DeleteConstants()
{
    DestroyConstants();
    m_mapConstants.RemoveAll();
}

// Frees the value arrays but leaves the entries; the caller empties the
// table right after.
void AI_CStrategy::DestroyConstants()
{
    for (POSITION pos = m_mapConstants.GetStartPosition(); pos;)
        delete m_mapConstants.GetNextValue(pos);
}

// ---- command lists ------------------------------------------------------------

AI_CCommandList *AI_CStrategy::CommandList(char const *pszFilename) const
{
    AI_CCommandList *pCommands = nullptr;
    m_mapCommandLists.Lookup(pszFilename, pCommands);
    return pCommands;
}

// A list stored earlier under the same name is not destroyed: the parser
// never stores a name twice.
void AI_CStrategy::AddCommandList(char const *pszFilename, AI_CCommandList *pCommands)
{
    m_mapCommandLists.SetAt(pszFilename, pCommands);
}

void AI_CStrategy::DeleteCommandLists()
{
    DestroyCommandLists();
    m_mapCommandLists.RemoveAll();
}

// Frees each list with its whole tree, in enumeration order, but leaves the
// entries. Load commands only refer to the lists, so each is freed once.
void AI_CStrategy::DestroyCommandLists()
{
    for (POSITION pos = m_mapCommandLists.GetStartPosition(); pos;)
        delete m_mapCommandLists.GetNextValue(pos);
}

// ---- object interface -----------------------------------------------------------

CString AI_CStrategy::GetDescription()
{
    CString str;
    str.Format("strategy: %s (%s)", m_strName.GetString(), m_strFilename.GetString());
    return str;
}

// Only the main file's list: everything else is reached through it.
void AI_CStrategy::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const
{
    if (AI_CCommandList *pCommands = CommandList(m_strFilename))
        out.AddTail(pCommands);
}
