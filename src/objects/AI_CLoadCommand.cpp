#include "AI_CLoadCommand.h"

#include <ostream>

#include "AI_ActiveSet.h"
#include "AI_ListOps.h"
#include "AI_Listing.h"
#include "AI_LoadFile.h"

IMPLEMENT_DYNCREATE(AI_CLoadCommand, AI_CCommand)

AI_CLoadCommand::AI_CLoadCommand() : m_pFilename(nullptr), m_pCommands(nullptr), m_pStrategy(nullptr) {}

AI_CLoadCommand::AI_CLoadCommand(CString *pFilename, AI_CStrategy *pStrategy)
    : m_pFilename(pFilename), m_pCommands(nullptr), m_pStrategy(pStrategy)
{}

// The loaded list belongs to the strategy.
AI_CLoadCommand::~AI_CLoadCommand() { delete m_pFilename; }

CString AI_CLoadCommand::GetDescription()
{
    CString str;
    str.Format("load command: %s", listing::Text(m_pFilename));
    return str;
}

void AI_CLoadCommand::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const { lists::AppendIf(m_pCommands, out); }

// The command as a comment, then the loaded file's commands between its
// START and END banners. A file already being written higher up (one that
// loads itself) gets its banners only.
void AI_CLoadCommand::PrettyPrint(std::ostream &os, int nLevel) const
{
    CString strFilename(listing::Text(m_pFilename));
    os << ";";
    Offset(os, nLevel);
    os << "("
       << "load"
       << " " << strFilename.GetString() << ")" << std::endl;
    listing::StartBanner(os, nLevel, strFilename);
    os << std::endl;
    if (m_pCommands && !active::Writing().Contains(m_pCommands))
        m_pCommands->PrettyPrint(os, nLevel);
    os << std::endl;
    listing::EndBanner(os, nLevel, strFilename);
}

int AI_CLoadCommand::IsValid() const { return m_pFilename != nullptr; }

int AI_CLoadCommand::Check() { return m_pCommands ? m_pCommands->Check() : 0; }

void AI_CLoadCommand::Load()
{
    if (m_pFilename)
        AI_LoadFile(m_pStrategy, *m_pFilename, m_pCommands);
}

int AI_CLoadCommand::IsLoaded() const { return m_pCommands != nullptr; }

// Clears the file name without freeing it; loaded list and strategy stay.
void AI_CLoadCommand::Invalidate() { m_pFilename = nullptr; }

// ---- AI_CLoadOption -----------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CLoadOption, AI_CObject)

AI_CLoadOption::AI_CLoadOption() : m_nProbability(0), m_pFilename(nullptr) {}

AI_CLoadOption::AI_CLoadOption(int nProbability, CString *pFilename)
    : m_nProbability(nProbability), m_pFilename(pFilename)
{}

AI_CLoadOption::~AI_CLoadOption() { delete m_pFilename; }

CString AI_CLoadOption::GetDescription()
{
    CString str;
    str.Format("load option: %d, %s", m_nProbability, listing::Text(m_pFilename));
    return str;
}

void AI_CLoadOption::GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const {}

void AI_CLoadOption::PrettyPrint(std::ostream &os, int nLevel) const
{
    os << ";";
    Offset(os, nLevel);
    os << m_nProbability << " " << listing::Text(m_pFilename);
}

int AI_CLoadOption::IsValid() const { return m_nProbability >= 1 && m_nProbability <= 100 && m_pFilename ? 1 : 0; }

void AI_CLoadOption::Invalidate()
{
    m_nProbability = 0;
    m_pFilename = nullptr;
}

// ---- AI_CLoadOptionList -------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CLoadOptionList, AI_CObject)

AI_CLoadOptionList::AI_CLoadOptionList() {}

AI_CLoadOptionList::~AI_CLoadOptionList() { lists::DeleteAll(m_lstLoadOptions); }

int AI_CLoadOptionList::GetTotalProbability() const
{
    int nTotal = 0;
    for (POSITION pos = m_lstLoadOptions.GetHeadPosition(); pos;) {
        AI_CLoadOption *pOption = m_lstLoadOptions.GetNext(pos);
        if (pOption)
            nTotal += pOption->GetProbability();
    }
    return nTotal;
}

CString AI_CLoadOptionList::GetDescription()
{
    return lists::Describe("load options list: ", m_lstLoadOptions, " load options");
}

void AI_CLoadOptionList::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const
{
    lists::AppendTo(m_lstLoadOptions, out);
}

void AI_CLoadOptionList::PrettyPrint(std::ostream &os, int nLevel) const
{
    lists::PrintEach(m_lstLoadOptions, os, nLevel);
}

AI_CLoadOption *AI_CLoadOptionList::Add(AI_CLoadOption *pOption)
{
    m_lstLoadOptions.AddTail(pOption);
    return pOption;
}
