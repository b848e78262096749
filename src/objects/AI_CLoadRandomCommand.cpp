#include "AI_CLoadCommand.h"

#include <ostream>

#include "AI_ActiveSet.h"
#include "AI_ListOps.h"
#include "AI_Listing.h"
#include "AI_LoadFile.h"

namespace {

// Maps one draw onto 0..100; 100 only for the largest draw.
int Percent(int nDraw) { return static_cast<int>(nDraw * (1.0 / crt::kRandMax) * 100.0); }

// The file of the first option whose share holds x: the first option takes
// 0..p1, each later one the p values above the previous sum (bounds
// inclusive, the earlier option wins a shared bound). Null when none does.
CString const *ChooseOption(AI_CLoadOptionList const *pOptions, int x)
{
    if (!pOptions)
        return nullptr;
    int nSum = 0;
    for (POSITION pos = pOptions->GetLoadOptions().GetHeadPosition(); pos;) {
        AI_CLoadOption const *pOption = pOptions->GetLoadOptions().GetNext(pos);
        if (!pOption)
            continue;
        int p = pOption->GetProbability();
        if (nSum <= x && x <= nSum + p)
            return pOption->GetFilename();
        nSum += p;
    }
    return nullptr;
}

}  // namespace

IMPLEMENT_DYNCREATE(AI_CLoadRandomCommand, AI_CCommand)

AI_CLoadRandomCommand::AI_CLoadRandomCommand()
    : m_pOptions(nullptr), m_pFilename(nullptr), m_pLoaded(nullptr), m_pCommands(nullptr), m_pStrategy(nullptr)
{}

AI_CLoadRandomCommand::AI_CLoadRandomCommand(AI_CLoadOptionList *pOptions, CString *pFilename, AI_CStrategy *pStrategy)
    : m_pOptions(pOptions), m_pFilename(pFilename), m_pLoaded(nullptr), m_pCommands(nullptr), m_pStrategy(pStrategy)
{}

// The chosen name points into the options or the default; the loaded list
// belongs to the strategy.
AI_CLoadRandomCommand::~AI_CLoadRandomCommand()
{
    delete m_pOptions;
    delete m_pFilename;
}

CString AI_CLoadRandomCommand::GetDescription()
{
    CString str;
    str.Format("load random command: default %s, loaded %s", m_pFilename ? m_pFilename->GetString() : "?",
               m_pLoaded ? m_pLoaded->GetString() : "?");
    return str;
}

void AI_CLoadRandomCommand::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const
{
    lists::AppendIf(m_pOptions, out);
    lists::AppendIf(m_pCommands, out);
}

// The command and its options as comments, the choice, then the chosen
// file's commands between banners (banners only when that file is already
// being written higher up).
void AI_CLoadRandomCommand::PrettyPrint(std::ostream &os, int nLevel) const
{
    os << ";";
    Offset(os, nLevel);
    os << "("
       << "load-random" << std::endl;
    if (m_pOptions)
        m_pOptions->PrettyPrint(os, nLevel + 1);
    if (m_pFilename) {
        os << ";";
        Offset(os, nLevel + 1);
        os << m_pFilename->GetString() << std::endl;
    }
    os << ";";
    Offset(os, nLevel);
    os << ")" << std::endl;
    os << ";";
    Offset(os, nLevel);
    os << "loaded: " << (m_pLoaded ? m_pLoaded->GetString() : "none") << std::endl;
    os << std::endl;
    if (m_pLoaded) {
        listing::StartBanner(os, nLevel, *m_pLoaded);
        os << std::endl;
    }
    if (m_pCommands && !active::Writing().Contains(m_pCommands))
        m_pCommands->PrettyPrint(os, nLevel);
    if (m_pLoaded) {
        os << std::endl;
        listing::EndBanner(os, nLevel, *m_pLoaded);
    }
}

int AI_CLoadRandomCommand::IsValid() const { return !m_pOptions || m_pOptions->GetTotalProbability() <= 100 ? 1 : 0; }

int AI_CLoadRandomCommand::Check() { return m_pCommands ? m_pCommands->Check() : 0; }

// One draw per call, whatever the options. Without a choice nothing is
// parsed and the command stays unloaded, so the next load of its list draws
// again.
void AI_CLoadRandomCommand::Load()
{
    int x = Percent(crt::rand());
    m_pLoaded = ChooseOption(m_pOptions, x);
    if (!m_pLoaded)
        m_pLoaded = m_pFilename;
    if (m_pLoaded)
        AI_LoadFile(m_pStrategy, *m_pLoaded, m_pCommands);
}

int AI_CLoadRandomCommand::IsLoaded() const { return m_pCommands != nullptr; }

// Like the other commands: clears what it owns (options and default file)
// without freeing them. The chosen name may point into either, so it goes
// too; the loaded list and the strategy stay.
void AI_CLoadRandomCommand::Invalidate()
{
    m_pOptions = nullptr;
    m_pFilename = nullptr;
    m_pLoaded = nullptr;
}
