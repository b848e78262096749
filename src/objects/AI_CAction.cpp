#include "AI_CAction.h"

#include <ostream>

#include "../vocabulary/AI_Registry.h"
#include "../vocabulary/AI_Vocabulary.h"
#include "AI_CExpression.h"
#include "AI_ListOps.h"

IMPLEMENT_DYNCREATE(AI_CAction, AI_CObject)

AI_CAction::AI_CAction() : m_nSID(0), m_pExpressions(nullptr) {}

AI_CAction::AI_CAction(unsigned int nSID, AI_CExprList *pExpressions) : m_nSID(nSID), m_pExpressions(pExpressions) {}

AI_CAction::~AI_CAction() { delete m_pExpressions; }

int AI_CAction::IsActionID(unsigned int nSID) { return AI_IsAction(nSID); }

CString AI_CAction::GetDescription() { return "action: " + AI_String(m_nSID); }

void AI_CAction::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const { lists::AppendIf(m_pExpressions, out); }

void AI_CAction::PrettyPrint(std::ostream &os, int nLevel) const
{
    Offset(os, nLevel);
    os << "(" << vocabulary::NameOf(m_nSID);
    if (m_pExpressions) {
        os << " ";
        m_pExpressions->PrettyPrint(os, 0);
    }
    os << ")";
}

// The arguments were matched against the action's signature by the parser.
int AI_CAction::IsValid() const { return IsActionID(m_nSID); }

void AI_CAction::Invalidate()
{
    m_nSID = 0;
    m_pExpressions = nullptr;
}

// Actions cannot take effect inside the library: each reports failure.
int AI_CAction::Execute() { return 0; }

// ---- AI_CActionList -----------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CActionList, AI_CObject)

AI_CActionList::AI_CActionList() {}

AI_CActionList::~AI_CActionList() { lists::DeleteAll(m_lstActions); }

CString AI_CActionList::GetDescription() { return lists::Describe("action list: ", m_lstActions, " actions"); }

void AI_CActionList::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const { lists::AppendTo(m_lstActions, out); }

void AI_CActionList::PrettyPrint(std::ostream &os, int nLevel) const { lists::PrintEach(m_lstActions, os, nLevel); }

AI_CAction *AI_CActionList::Add(AI_CAction *pAction)
{
    m_lstActions.AddTail(pAction);
    return pAction;
}

// Runs the actions in order and stops at the first that fails.
int AI_CActionList::Execute()
{
    for (POSITION pos = m_lstActions.GetHeadPosition(); pos;) {
        AI_CAction *pAction = m_lstActions.GetNext(pos);
        if (pAction && !pAction->Execute())
            return 0;
    }
    return 1;
}
