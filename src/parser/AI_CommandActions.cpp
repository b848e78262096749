// The semantic actions of commands: command lists (with the resolution of
// conditional blocks), loads, random loads, constant definitions and blocks.
#include "AI_ParserActions.h"

namespace {

// The highest probability of one option; options must sum to less than it.
int const kCertain = 100;

CString Decimal(int nValue)
{
    CString strText;
    strText.Format("%d", nValue);
    return strText;
}

}  // namespace

AI_CCommandList *AI_CParser::command_list(AI_CCommand *pCommand)
{
    AI_CCommandList *pCommands = Keep(AI_New<AI_CCommandList>());
    AddCommand(pCommands, pCommand);
    return pCommands;
}

AI_CCommandList *AI_CParser::command_list(AI_CCommandList *pCommands, AI_CCommand *pCommand)
{
    AddCommand(pCommands, pCommand);
    return pCommands;
}

// Blocks are recognised by their exact class: a class derived from AI_CBlock
// would be a command of its own. Blocks nested in a branch were resolved
// when their own list was built, so the branch moved here holds none.
void AI_CParser::AddCommand(AI_CCommandList *pCommands, AI_CCommand *pCommand)
{
    if (!s_bExpandBlocks || pCommand->GetRuntimeClass() != RUNTIME_CLASS(AI_CBlock)) {
        pCommands->Add(pCommand);
        Forget(pCommand);
        return;
    }
    AI_CBlock *pBlock = static_cast<AI_CBlock *>(pCommand);
    bool bDefined = m_pStrategy->Define(pBlock->GetSID()) != 0;
    bool bIf = pBlock->GetIf() != 0;
    // The block owns its branches and is about to go, so taking commands
    // out of the selected branch is safe.
    AI_CCommandList *pSelected
        = const_cast<AI_CCommandList *>(bDefined == bIf ? pBlock->GetIfCommands() : pBlock->GetElseCommands());
    if (pSelected)
        pCommands->Add(pSelected);
    Forget(pBlock);
    delete pBlock;
}

AI_CCommand *AI_CParser::command(AI_CCommand *pCommand) { return pCommand; }

AI_CCommand *AI_CParser::load_command(CString *pFilename)
{
    return AI_RequireValid(Keep(AI_New<AI_CLoadCommand>(pFilename, m_pStrategy), pFilename));
}

AI_CCommand *AI_CParser::load_random_command(AI_CLoadOptionList *pOptions, CString *pFilename)
{
    if (pOptions && pOptions->GetTotalProbability() >= kCertain)
        AI_RaiseParseError(AI_PE_PROBABILITY_SUM, Decimal(pOptions->GetTotalProbability()));
    return AI_RequireValid(Keep(AI_New<AI_CLoadRandomCommand>(pOptions, pFilename, m_pStrategy), pOptions, pFilename));
}

AI_CLoadOptionList *AI_CParser::load_option_list() { return nullptr; }

AI_CLoadOptionList *AI_CParser::load_option_list(AI_CLoadOptionList *pOptions, AI_CLoadOption *pOption)
{
    return Append(pOptions, pOption);
}

AI_CLoadOption *AI_CParser::load_option(int nProbability, CString *pFilename)
{
    if (nProbability < 1 || nProbability > kCertain)
        AI_RaiseParseError(AI_PE_PROBABILITY, Decimal(nProbability));
    return AI_RequireValid(Keep(AI_New<AI_CLoadOption>(nProbability, pFilename), pFilename));
}

CString *AI_CParser::opt_file_name() { return nullptr; }

CString *AI_CParser::opt_file_name(CString *pFilename) { return pFilename; }

AI_CCommand *AI_CParser::defrule_command(AI_CCEList *pCEs, AI_CActionList *pActions)
{
    return AI_RequireValid(Keep(AI_New<AI_CDefruleCommand>(pCEs, pActions), pCEs, pActions));
}

// A new name becomes a constant with its value registered; a constant may be
// defined again without touching the registry; any other word is taken.
AI_CCommand *AI_CParser::defconst_command(char const *pszName, int nValue)
{
    unsigned int nSID = AI_Symbol(pszName);
    if (!nSID)
        nSID = AI_AddConstant(pszName, nValue);
    else if (!AI_IsConstant(nSID))
        AI_RaiseParseError(AI_PE_DUPLICATE_SYMBOL, pszName);
    return AI_RequireValid(Keep(AI_New<AI_CDefconstCommand>(nSID, nValue, m_pStrategy)));
}

int AI_CParser::const_value(int nValue) { return nValue; }

int AI_CParser::const_value(unsigned int nSID)
{
    if (!AI_IsConstant(nSID))
        AI_RaiseParseError(AI_PE_NON_CONST_SYMBOL, AI_String(nSID));
    return ConstantValue(nSID);
}

// The strategy records values only when "defconst" commands are loaded, so a
// constant defined earlier in the file being parsed has its value in the
// registry only.
int AI_CParser::ConstantValue(unsigned int nSID) const
{
    int nValue = m_pStrategy->Constant(nSID, 0);
    return nValue != AI_NO_VALUE ? nValue : AI_Constant(nSID, 0);
}

AI_CCommand *AI_CParser::block(int bIf, unsigned int nSID, AI_CCommandList *pIfCommands, AI_CCommandList *pElseCommands)
{
    if (!AI_CBlock::IsDefineID(nSID))
        AI_RaiseParseError(AI_PE_DEFINE_EXPECTED, AI_String(nSID));
    return AI_RequireValid(Keep(AI_New<AI_CBlock>(bIf, nSID, pIfCommands, pElseCommands), pIfCommands, pElseCommands));
}

int AI_CParser::if_dir(int nToken) { return nToken == TOK_D_LOAD_IF_DEFINED ? 1 : 0; }

AI_CCommandList *AI_CParser::opt_else() { return nullptr; }

AI_CCommandList *AI_CParser::opt_else(AI_CCommandList *pCommands) { return pCommands; }
