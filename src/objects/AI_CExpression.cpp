#include "AI_CExpression.h"

#include <ostream>

#include "../vocabulary/AI_Registry.h"
#include "../vocabulary/AI_Vocabulary.h"
#include "AI_ListOps.h"

IMPLEMENT_DYNCREATE(AI_CExpression, AI_CObject)

AI_CExpression::AI_CExpression() : m_nType(AI_EXPR_INTEGER) { m_contents.nInteger = 0; }

AI_CExpression::AI_CExpression(unsigned int nSID) : m_nType(AI_EXPR_SYMBOL) { m_contents.nSID = nSID; }

AI_CExpression::AI_CExpression(CString *pString) : m_nType(AI_EXPR_STRING) { m_contents.pString = pString; }

AI_CExpression::AI_CExpression(int nInteger) : m_nType(AI_EXPR_INTEGER) { m_contents.nInteger = nInteger; }

AI_CExpression::~AI_CExpression()
{
    if (m_nType == AI_EXPR_STRING)
        delete m_contents.pString;
}

int AI_CExpression::IsExpressionID(unsigned int nSID) { return AI_IsParam(nSID); }

// Joined rather than formatted where no number is involved: a tree walk
// describes every argument of a strategy.
CString AI_CExpression::GetDescription()
{
    switch (m_nType) {
    case AI_EXPR_SYMBOL:
        return "symbol: " + AI_String(m_contents.nSID);
    case AI_EXPR_STRING:
        return CString("string: ") + (m_contents.pString ? m_contents.pString->GetString() : "");
    default:
        return lists::WithNumber("integer: ", m_contents.nInteger);
    }
}

void AI_CExpression::GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const {}

// The level is not used: an expression is always written inside a line.
void AI_CExpression::PrettyPrint(std::ostream &os, int) const
{
    switch (m_nType) {
    case AI_EXPR_SYMBOL:
        os << vocabulary::NameOf(m_contents.nSID);
        break;
    case AI_EXPR_STRING:
        os << '"' << (m_contents.pString ? m_contents.pString->GetString() : "") << '"';
        break;
    default:
        os << m_contents.nInteger;
        break;
    }
}

int AI_CExpression::IsValid() const
{
    switch (m_nType) {
    case AI_EXPR_SYMBOL:
        return IsExpressionID(m_contents.nSID) ? 1 : 0;
    case AI_EXPR_STRING:
        return m_contents.pString != nullptr;
    default:
        return 1;
    }
}

// Clears the reference without freeing it; the type code stays.
void AI_CExpression::Invalidate()
{
    if (m_nType == AI_EXPR_SYMBOL)
        m_contents.nSID = 0;
    else if (m_nType == AI_EXPR_STRING)
        m_contents.pString = nullptr;
}

// ---- AI_CExprList -------------------------------------------------------

IMPLEMENT_DYNCREATE(AI_CExprList, AI_CObject)

AI_CExprList::AI_CExprList() {}

AI_CExprList::~AI_CExprList() { lists::DeleteAll(m_lstExpressions); }

CString AI_CExprList::GetDescription()
{
    return lists::Describe("expression list: ", m_lstExpressions, " expressions");
}

void AI_CExprList::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const
{
    lists::AppendTo(m_lstExpressions, out);
}

// The arguments on one line, separated by single blanks.
void AI_CExprList::PrettyPrint(std::ostream &os, int) const
{
    char const *pszSeparator = "";
    for (POSITION pos = m_lstExpressions.GetHeadPosition(); pos;) {
        AI_CExpression *pExpression = m_lstExpressions.GetNext(pos);
        if (!pExpression)
            continue;
        os << pszSeparator;
        pExpression->PrettyPrint(os, 0);
        pszSeparator = " ";
    }
}

AI_CExpression *AI_CExprList::Add(AI_CExpression *pExpression)
{
    m_lstExpressions.AddTail(pExpression);
    return pExpression;
}
