#include "AI_CCommand.h"

#include <ostream>

#include "../vocabulary/AI_Registry.h"
#include "../vocabulary/AI_Vocabulary.h"
#include "AI_CAction.h"
#include "AI_CCE.h"
#include "AI_ListOps.h"
#include "AI_StrategyLink.h"

// ---- AI_CCommand --------------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CCommand, AI_CObject)

AI_CCommand::AI_CCommand() {}

AI_CCommand::~AI_CCommand() {}

int AI_CCommand::IsValid() const { return 1; }

int AI_CCommand::Check() { return 0; }

void AI_CCommand::Load() {}

int AI_CCommand::IsLoaded() const { return 1; }

// ---- AI_CDefruleCommand -------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CDefruleCommand, AI_CCommand)

AI_CDefruleCommand::AI_CDefruleCommand() : m_pCEs(nullptr), m_pActions(nullptr) {}

AI_CDefruleCommand::AI_CDefruleCommand(AI_CCEList *pCEs, AI_CActionList *pActions) : m_pCEs(pCEs), m_pActions(pActions)
{}

AI_CDefruleCommand::~AI_CDefruleCommand()
{
    delete m_pCEs;
    delete m_pActions;
}

CString AI_CDefruleCommand::GetDescription() { return CString("defrule command"); }

void AI_CDefruleCommand::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const
{
    lists::AppendIf(m_pCEs, out);
    lists::AppendIf(m_pActions, out);
}

void AI_CDefruleCommand::PrettyPrint(std::ostream &os, int nLevel) const
{
    Offset(os, nLevel);
    os << "("
       << "defrule" << std::endl;
    if (m_pCEs)
        m_pCEs->PrettyPrint(os, nLevel + 1);
    Offset(os, nLevel);
    os << "=>" << std::endl;
    if (m_pActions)
        m_pActions->PrettyPrint(os, nLevel + 1);
    Offset(os, nLevel);
    os << ")" << std::endl;
}

// Emptiness is allowed: only the presence of both lists is required.
int AI_CDefruleCommand::IsValid() const { return m_pCEs && m_pActions ? 1 : 0; }

// Runs the rule once; the actions' result does not matter.
int AI_CDefruleCommand::Check()
{
    bool bFires = !m_pCEs || m_pCEs->IsTrue();
    if (bFires && m_pActions)
        m_pActions->Execute();
    return 1;
}

void AI_CDefruleCommand::Invalidate()
{
    m_pCEs = nullptr;
    m_pActions = nullptr;
}

// ---- AI_CDefconstCommand ------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CDefconstCommand, AI_CCommand)

AI_CDefconstCommand::AI_CDefconstCommand() : m_nSID(0), m_nValue(0), m_pStrategy(nullptr) {}

AI_CDefconstCommand::AI_CDefconstCommand(unsigned int nSID, int nValue, AI_CStrategy *pStrategy)
    : m_nSID(nSID), m_nValue(nValue), m_pStrategy(pStrategy)
{}

AI_CDefconstCommand::~AI_CDefconstCommand() {}

int AI_CDefconstCommand::IsConstantID(unsigned int nSID) { return AI_IsConstant(nSID); }

CString AI_CDefconstCommand::GetDescription()
{
    CString str;
    str.Format("defconst command: %s = %d", AI_String(m_nSID).GetString(), m_nValue);
    return str;
}

void AI_CDefconstCommand::GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const {}

void AI_CDefconstCommand::PrettyPrint(std::ostream &os, int nLevel) const
{
    Offset(os, nLevel);
    os << "("
       << "defconst"
       << " " << vocabulary::NameOf(m_nSID) << " " << m_nValue << ")" << std::endl;
}

int AI_CDefconstCommand::IsValid() const { return IsConstantID(m_nSID); }

int AI_CDefconstCommand::Check() { return 1; }

// Records the value in the strategy each time the enclosing list loads.
void AI_CDefconstCommand::Load()
{
    if (m_pStrategy)
        AI_TheStrategyLink().AddConstantValue(m_pStrategy, m_nSID, m_nValue);
}

// Never loaded for good: every load of its list records the value again.
int AI_CDefconstCommand::IsLoaded() const { return 0; }

void AI_CDefconstCommand::Invalidate() { m_nSID = 0; }
