#include "AI_CCE.h"

#include <ostream>

#include "../vocabulary/AI_Registry.h"
#include "../vocabulary/AI_Vocabulary.h"
#include "AI_CExpression.h"
#include "AI_ListOps.h"

// ---- AI_CCE -------------------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CCE, AI_CObject)

AI_CCE::AI_CCE() {}

AI_CCE::~AI_CCE() {}

int AI_CCE::IsValid() const { return 1; }

int AI_CCE::IsTrue() const { return 0; }

// ---- AI_CTestCE ---------------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CTestCE, AI_CCE)

AI_CTestCE::AI_CTestCE() : m_nSID(0), m_pExpressions(nullptr) {}

AI_CTestCE::AI_CTestCE(unsigned int nSID, AI_CExprList *pExpressions) : m_nSID(nSID), m_pExpressions(pExpressions) {}

AI_CTestCE::~AI_CTestCE() { delete m_pExpressions; }

int AI_CTestCE::IsFactID(unsigned int nSID) { return AI_IsFact(nSID); }

CString AI_CTestCE::GetDescription() { return "fact: " + AI_String(m_nSID); }

void AI_CTestCE::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const { lists::AppendIf(m_pExpressions, out); }

// "(name args)", or "(name)" without arguments.
void AI_CTestCE::PrettyPrint(std::ostream &os, int nLevel) const
{
    Offset(os, nLevel);
    os << "(" << vocabulary::NameOf(m_nSID);
    if (m_pExpressions) {
        os << " ";
        m_pExpressions->PrettyPrint(os, 0);
    }
    os << ")";
}

// The arguments were matched against the fact's signature by the parser.
int AI_CTestCE::IsValid() const { return IsFactID(m_nSID); }

// Facts cannot be observed inside the library: a test never holds.
int AI_CTestCE::IsTrue() const { return 0; }

void AI_CTestCE::Invalidate()
{
    m_nSID = 0;
    m_pExpressions = nullptr;
}

// ---- AI_COpCE -----------------------------------------------------------

namespace {

char const *const kKeywords[] = {"not", "and", "or", "xor", "nand", "nor", "xnor"};

bool IsKnownOp(int nOp) { return nOp >= AI_COpCE::opNot && nOp <= AI_COpCE::opXnor; }

char const *Keyword(int nOp) { return IsKnownOp(nOp) ? kKeywords[nOp] : ""; }

int Holds(AI_CCE const *pCE) { return pCE && pCE->IsTrue() ? 1 : 0; }

}  // namespace

IMPLEMENT_DYNCREATE(AI_COpCE, AI_CCE)

AI_COpCE::AI_COpCE() : m_nOp(opNot), m_pCE1(nullptr), m_pCE2(nullptr) {}

AI_COpCE::AI_COpCE(Op nOp, AI_CCE *pCE1, AI_CCE *pCE2) : m_nOp(nOp), m_pCE1(pCE1), m_pCE2(pCE2) {}

AI_COpCE::~AI_COpCE()
{
    delete m_pCE1;
    delete m_pCE2;
}

CString AI_COpCE::GetDescription()
{
    CString str;
    str.Format("fact operation: %s", Keyword(m_nOp));
    return str;
}

void AI_COpCE::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const
{
    lists::AppendIf(m_pCE1, out);
    lists::AppendIf(m_pCE2, out);
}

// The keyword on its own line, each operand on its own line one level
// deeper, then the closing parenthesis (without a line end).
void AI_COpCE::PrettyPrint(std::ostream &os, int nLevel) const
{
    Offset(os, nLevel);
    os << "(" << Keyword(m_nOp) << std::endl;
    for (AI_CCE const *pOperand : {m_pCE1, m_pCE2}) {
        if (!pOperand)
            continue;
        pOperand->PrettyPrint(os, nLevel + 1);
        os << std::endl;
    }
    Offset(os, nLevel);
    os << ")";
}

int AI_COpCE::IsValid() const
{
    if (!IsKnownOp(m_nOp) || !m_pCE1)
        return 0;
    bool bUnary = m_nOp == opNot;
    return bUnary == (m_pCE2 == nullptr) ? 1 : 0;
}

// The second operand is evaluated only when the first does not decide.
int AI_COpCE::IsTrue() const
{
    int a = Holds(m_pCE1);
    switch (m_nOp) {
    case opNot:
        return !a;
    case opAnd:
        return a ? Holds(m_pCE2) : 0;
    case opOr:
        return a ? 1 : Holds(m_pCE2);
    case opXor:
        return a != Holds(m_pCE2);
    case opNand:
        return a ? !Holds(m_pCE2) : 1;
    case opNor:
        return a ? 0 : !Holds(m_pCE2);
    case opXnor:
        return a == Holds(m_pCE2);
    }
    return 0;
}

void AI_COpCE::Invalidate()
{
    m_pCE1 = nullptr;
    m_pCE2 = nullptr;
}

// ---- AI_CCEList ---------------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CCEList, AI_CObject)

AI_CCEList::AI_CCEList() {}

AI_CCEList::~AI_CCEList() { lists::DeleteAll(m_lstCEs); }

CString AI_CCEList::GetDescription() { return lists::Describe("fact list: ", m_lstCEs, " CEs"); }

void AI_CCEList::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const { lists::AppendTo(m_lstCEs, out); }

void AI_CCEList::PrettyPrint(std::ostream &os, int nLevel) const { lists::PrintEach(m_lstCEs, os, nLevel); }

AI_CCE *AI_CCEList::Add(AI_CCE *pCE)
{
    m_lstCEs.AddTail(pCE);
    return pCE;
}

// All conditions must hold; the walk stops at the first that does not.
int AI_CCEList::IsTrue() const
{
    for (POSITION pos = m_lstCEs.GetHeadPosition(); pos;) {
        AI_CCE *pCE = m_lstCEs.GetNext(pos);
        if (pCE && !pCE->IsTrue())
            return 0;
    }
    return 1;
}
