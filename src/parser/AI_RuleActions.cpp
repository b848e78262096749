// The semantic actions of rules: condition and action lists, fact tests,
// logical operators, actions with their argument check, arguments, and the
// terminals (symbols, strings, relational operators, integer literals).
#include <cstdint>
#include <cstdlib>

#include "AI_ParserActions.h"

namespace {

// Relational operator tokens and the SIDs of their param words.
struct RelOp
{
    int nToken;
    unsigned int nSID;
};

RelOp const kRelOps[] = {
    {TOK_RW_LESS_THAN, AI_SID_LESS_THAN},
    {TOK_RW_LESS_OR_EQUAL, AI_SID_LESS_OR_EQUAL},
    {TOK_RW_GREATER_THAN, AI_SID_GREATER_THAN},
    {TOK_RW_GREATER_OR_EQUAL, AI_SID_GREATER_OR_EQUAL},
    {TOK_RW_EQUAL, AI_SID_EQUAL},
    {TOK_RW_NOT_EQUAL, AI_SID_NOT_EQUAL},
};

// The text an argument is reported with.
CString ArgumentText(AI_CExpression const *pExpression)
{
    AI_CExpression::Contents const &contents = pExpression->GetContents();
    CString strText;
    switch (pExpression->GetType()) {
    case AI_EXPR_SYMBOL:
        return AI_String(contents.nSID);
    case AI_EXPR_STRING:
        return contents.pString ? *contents.pString : CString();
    case AI_EXPR_INTEGER:
        strText.Format("%d", contents.nInteger);
        return strText;
    default:
        return strText;
    }
}

// Whether the argument fits the parameter type, by the argument's kind.
int FitsType(int nType, AI_CExpression const *pExpression)
{
    AI_CExpression::Contents const &contents = pExpression->GetContents();
    switch (pExpression->GetType()) {
    case AI_EXPR_SYMBOL:
        return AI_IsOfType(nType, contents.nSID);
    case AI_EXPR_STRING:
        return contents.pString && AI_IsOfType(nType, *contents.pString);
    case AI_EXPR_INTEGER:
        return AI_IsOfType(nType, contents.nInteger);
    default:
        return 0;
    }
}

// What a 32-bit long conversion gives: values beyond its range saturate.
long ConvertLong(char const *pszText, char **ppEnd)
{
    long long nValue = std::strtoll(pszText, ppEnd, 10);
    if (nValue > INT32_MAX)
        return INT32_MAX;
    if (nValue < INT32_MIN)
        return INT32_MIN;
    return static_cast<long>(nValue);
}

}  // namespace

AI_CCEList *AI_CParser::ce_list(AI_CCE *pCE) { return Append<AI_CCEList>(nullptr, pCE); }

AI_CCEList *AI_CParser::ce_list(AI_CCEList *pCEs, AI_CCE *pCE) { return Append(pCEs, pCE); }

AI_CActionList *AI_CParser::action_list(AI_CAction *pAction) { return Append<AI_CActionList>(nullptr, pAction); }

AI_CActionList *AI_CParser::action_list(AI_CActionList *pActions, AI_CAction *pAction)
{
    return Append(pActions, pAction);
}

AI_CCE *AI_CParser::conditional_element(AI_CCE *pCE) { return pCE; }

AI_CCE *AI_CParser::test_CE(unsigned int nSID, AI_CExprList *pExpressions)
{
    CheckParams(AI_Fact(nSID), pExpressions);
    return AI_RequireValid(Keep(AI_New<AI_CTestCE>(nSID, pExpressions), pExpressions));
}

AI_CCE *AI_CParser::not_CE(AI_CCE *pCE)
{
    return AI_RequireValid(Keep(AI_New<AI_COpCE>(AI_COpCE::opNot, pCE, nullptr), pCE));
}

AI_CCE *AI_CParser::and_CE(AI_CCE *pCE1, AI_CCE *pCE2)
{
    return AI_RequireValid(Keep(AI_New<AI_COpCE>(AI_COpCE::opAnd, pCE1, pCE2), pCE1, pCE2));
}

AI_CCE *AI_CParser::or_CE(AI_CCE *pCE1, AI_CCE *pCE2)
{
    return AI_RequireValid(Keep(AI_New<AI_COpCE>(AI_COpCE::opOr, pCE1, pCE2), pCE1, pCE2));
}

AI_CCE *AI_CParser::xor_CE(AI_CCE *pCE1, AI_CCE *pCE2)
{
    return AI_RequireValid(Keep(AI_New<AI_COpCE>(AI_COpCE::opXor, pCE1, pCE2), pCE1, pCE2));
}

AI_CCE *AI_CParser::nand_CE(AI_CCE *pCE1, AI_CCE *pCE2)
{
    return AI_RequireValid(Keep(AI_New<AI_COpCE>(AI_COpCE::opNand, pCE1, pCE2), pCE1, pCE2));
}

AI_CCE *AI_CParser::nor_CE(AI_CCE *pCE1, AI_CCE *pCE2)
{
    return AI_RequireValid(Keep(AI_New<AI_COpCE>(AI_COpCE::opNor, pCE1, pCE2), pCE1, pCE2));
}

AI_CCE *AI_CParser::xnor_CE(AI_CCE *pCE1, AI_CCE *pCE2)
{
    return AI_RequireValid(Keep(AI_New<AI_COpCE>(AI_COpCE::opXnor, pCE1, pCE2), pCE1, pCE2));
}

AI_CAction *AI_CParser::action(unsigned int nSID, AI_CExprList *pExpressions)
{
    CheckParams(AI_Action(nSID), pExpressions);
    return AI_RequireValid(Keep(AI_New<AI_CAction>(nSID, pExpressions), pExpressions));
}

AI_CExprList *AI_CParser::expr_list() { return nullptr; }

AI_CExprList *AI_CParser::expr_list(AI_CExprList *pExpressions, AI_CExpression *pExpression)
{
    return Append(pExpressions, pExpression);
}

// A name of the right kind must also have a signature: a host may have put
// some other word at a SID inside the fact or action range.
unsigned int AI_CParser::fact_function_name(unsigned int nSID)
{
    if (!AI_CTestCE::IsFactID(nSID) || !AI_Fact(nSID))
        AI_RaiseParseError(AI_PE_FACT_EXPECTED, AI_String(nSID));
    return nSID;
}

unsigned int AI_CParser::action_function_name(unsigned int nSID)
{
    if (!AI_CAction::IsActionID(nSID) || !AI_Action(nSID))
        AI_RaiseParseError(AI_PE_ACTION_EXPECTED, AI_String(nSID));
    return nSID;
}

// A constant argument becomes the integer it stands for, so it is checked
// and listed as that integer.
AI_CExpression *AI_CParser::expression(unsigned int nSID)
{
    if (AI_IsParam(nSID))
        return Keep(AI_New<AI_CExpression>(nSID));
    if (AI_IsConstant(nSID))
        return Keep(AI_New<AI_CExpression>(ConstantValue(nSID)));
    AI_RaiseParseError(AI_PE_EXPRESSION_EXPECTED, AI_String(nSID));
}

AI_CExpression *AI_CParser::expression(CString *pString) { return Keep(AI_New<AI_CExpression>(pString), pString); }

AI_CExpression *AI_CParser::expression(int nValue) { return Keep(AI_New<AI_CExpression>(nValue)); }

// A loaded file lies in the directory of the file that loads it and has its
// extension.
CString *AI_CParser::file_name(CString *pFilename)
{
    *pFilename = m_strDirectory + *pFilename + m_strExtension;
    return pFilename;
}

unsigned int AI_CParser::symbol(char const *pszText)
{
    unsigned int nSID = AI_Symbol(pszText);
    if (!nSID)
        AI_RaiseParseError(AI_PE_UNKNOWN_SYMBOL, pszText);
    return nSID;
}

CString *AI_CParser::string(char const *pszText) { return Keep(AI_New<CString>(pszText)); }

unsigned int AI_CParser::rel_op(int nToken)
{
    for (RelOp const &relOp : kRelOps)
        if (relOp.nToken == nToken)
            return relOp.nSID;
    return 0;
}

// The two extreme values are what an overflowing conversion answers, so
// they count as out of range themselves.
int AI_CParser::tok_integer(char const *pszText, int &nValue)
{
    char *pEnd = nullptr;
    long nConverted = ConvertLong(pszText, &pEnd);
    nValue = static_cast<int>(nConverted);
    if (*pEnd != '\0' || nConverted == INT32_MAX || nConverted == INT32_MIN)
        AI_RaiseParseError(AI_PE_INTEGER, pszText);
    return TOK_INTEGER;
}

void AI_CParser::CheckParams(AI_CFunction const *pFunction, AI_CExprList *pExpressions)
{
    CArray<int, int> const &params = pFunction->GetParams();
    int nArguments = pExpressions ? pExpressions->GetExpressions().GetCount() : 0;
    if (nArguments != params.GetSize())
        AI_RaiseParseError(AI_PE_PARAM_COUNT, pFunction->GetName());
    if (!pExpressions)
        return;
    POSITION position = pExpressions->GetExpressions().GetHeadPosition();
    for (int i = 0; position; ++i) {
        AI_CExpression const *pExpression = pExpressions->GetExpressions().GetNext(position);
        if (!FitsType(params[i], pExpression)) {
            AI_nBadArgument = i;
            AI_RaiseParseError(AI_PE_WRONG_PARAM, ArgumentText(pExpression));
        }
    }
}
