#include "AI_CLoadCommand.h"

#include <ostream>

#include "../vocabulary/AI_Vocabulary.h"
#include "AI_ListOps.h"

IMPLEMENT_DYNCREATE(AI_CBlock, AI_CCommand)

AI_CBlock::AI_CBlock() : m_bIf(0), m_nSID(0), m_pIfCommands(nullptr), m_pElseCommands(nullptr) {}

AI_CBlock::AI_CBlock(int bIf, unsigned int nSID, AI_CCommandList *pIfCommands, AI_CCommandList *pElseCommands)
    : m_bIf(bIf), m_nSID(nSID), m_pIfCommands(pIfCommands), m_pElseCommands(pElseCommands)
{}

AI_CBlock::~AI_CBlock()
{
    delete m_pIfCommands;
    delete m_pElseCommands;
}

int AI_CBlock::IsDefineID(unsigned int nSID) { return AI_IsDefine(nSID); }

CString AI_CBlock::GetDescription()
{
    CString str;
    str.Format("block: load if %sdefined %s", m_bIf ? "" : "not ", AI_String(m_nSID).GetString());
    return str;
}

void AI_CBlock::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const
{
    lists::AppendIf(m_pIfCommands, out);
    lists::AppendIf(m_pElseCommands, out);
}

// The directives in script syntax; "else" and "end-if" repeat the condition
// in a trailing comment.
void AI_CBlock::PrettyPrint(std::ostream &os, int nLevel) const
{
    CString strDefine = AI_String(m_nSID);
    char const *pszNot = m_bIf ? "" : "not ";
    Offset(os, nLevel);
    os << "#" << (m_bIf ? "load-if-defined" : "load-if-not-defined") << " " << strDefine.GetString() << std::endl;
    os << std::endl;
    if (m_pIfCommands)
        m_pIfCommands->PrettyPrint(os, nLevel + 1);
    if (m_pElseCommands) {
        Offset(os, nLevel);
        os << "#"
           << "else"
           << " ; " << pszNot << strDefine.GetString() << std::endl;
        os << std::endl;
        m_pElseCommands->PrettyPrint(os, nLevel + 1);
    }
    Offset(os, nLevel);
    os << "#"
       << "end-if"
       << " ; " << pszNot << strDefine.GetString() << std::endl;
}

int AI_CBlock::IsValid() const { return IsDefineID(m_nSID) && m_pIfCommands ? 1 : 0; }

// Checks the branch the flag names; the define itself is not evaluated.
int AI_CBlock::Check()
{
    if (m_bIf)
        return m_pIfCommands ? m_pIfCommands->Check() : 1;
    return m_pElseCommands ? m_pElseCommands->Check() : 1;
}

// Both branches are loaded, so that every file either one refers to is read.
void AI_CBlock::Load()
{
    if (m_pIfCommands)
        m_pIfCommands->Load();
    if (m_pElseCommands)
        m_pElseCommands->Load();
}

// Never loaded for good: each load of the enclosing list visits both
// branches again (their own loaded commands are skipped there).
int AI_CBlock::IsLoaded() const { return 0; }

void AI_CBlock::Invalidate()
{
    m_nSID = 0;
    m_pIfCommands = nullptr;
    m_pElseCommands = nullptr;
}
