#include "CheckMessages.h"

#include <cstdio>
#include <cstring>
#include <vector>

#include "../parser/AI_CException.h"
#include "../vocabulary/AI_Vocabulary.h"
#include "AI_Grammar.tab.h"

namespace stratagem {

namespace {

int const kSuggestions = 3;
std::size_t const kQuotedLength = 40;

// The readable names of the tokens a syntax error lists.
struct TokenName
{
    char const *pszGrammar;
    char const *pszReadable;
};

TokenName const kTokenNames[] = {
    {"$", "end of file"},
    {"TOK_RW_DEFRULE", "'defrule'"},
    {"TOK_RW_DEFCONST", "'defconst'"},
    {"TOK_RW_LOAD", "'load'"},
    {"TOK_RW_LOAD_RANDOM", "'load-random'"},
    {"TOK_D_LOAD_IF_DEFINED", "'load-if-defined'"},
    {"TOK_D_LOAD_IF_NOT_DEFINED", "'load-if-not-defined'"},
    {"TOK_D_ELSE", "'else'"},
    {"TOK_D_END_IF", "'end-if'"},
    {"TOK_ARROW", "'=>'"},
    {"TOK_SYMBOL", "a word"},
    {"TOK_STRING", "a string"},
    {"TOK_INTEGER", "a number"},
};

std::string Readable(std::string const &name)
{
    for (TokenName const &token : kTokenNames)
        if (name == token.pszGrammar)
            return token.pszReadable;
    return name;  // "'('" and the like read as they are
}

// "parse error, expecting `A' or `B'" -> "A or B"; empty when none listed.
std::string ExpectedTokens(std::string const &message)
{
    std::size_t i = message.find("expecting `");
    if (i == std::string::npos)
        return std::string();
    std::vector<std::string> names;
    for (i += std::strlen("expecting `"); i < message.size();) {
        std::size_t nEnd = message.find("' or `", i);
        bool bLast = nEnd == std::string::npos;
        if (bLast)
            nEnd = message.size() - 1;  // the closing apostrophe
        names.push_back(Readable(message.substr(i, nEnd - i)));
        if (bLast)
            break;
        i = nEnd + std::strlen("' or `");
    }
    std::string text;
    for (std::size_t k = 0; k < names.size(); ++k)
        text += (k == 0 ? "" : k + 1 == names.size() ? " or " : ", ") + names[k];
    return text;
}

std::string Quoted(std::string text)
{
    if (text.size() > kQuotedLength)
        text = text.substr(0, kQuotedLength) + "...";
    return "'" + text + "'";
}

std::string Character(std::string const &text)
{
    unsigned char ch = text.empty() ? 0 : static_cast<unsigned char>(text[0]);
    if (ch >= 0x21 && ch < 0x7F)
        return "'" + text + "'";
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "byte 0x%02X", ch);
    return buffer;
}

bool IsFactSID(unsigned int nSID) { return AI_IsFact(nSID) != 0; }
bool IsActionSID(unsigned int nSID) { return AI_IsAction(nSID) != 0; }
bool IsDefineSID(unsigned int nSID) { return AI_IsDefine(nSID) != 0; }
bool IsConstantSID(unsigned int nSID) { return AI_IsConstant(nSID) != 0; }
bool IsValueSID(unsigned int nSID) { return AI_IsParam(nSID) || AI_IsConstant(nSID); }

int s_nAcceptedType = 0;
bool IsOfAcceptedType(unsigned int nSID)
{
    return (AI_IsParam(nSID) && AI_IsOfType(s_nAcceptedType, nSID))
        || (AI_IsConstant(nSID) && AI_IsOfType(s_nAcceptedType, AI_Constant(nSID, 0)));
}

// Which kind of word belongs where an unknown word stands.
using Accept = bool (*)(unsigned int);
Accept WordsFor(ErrorContext const &context)
{
    if (context.nPrevious == '(')
        return context.bInActions ? IsActionSID : IsFactSID;
    if (context.nPrevious == TOK_D_LOAD_IF_DEFINED || context.nPrevious == TOK_D_LOAD_IF_NOT_DEFINED)
        return IsDefineSID;
    return IsValueSID;
}

void Suggest(Diagnostic &diagnostic, std::string const &word, Accept accept)
{
    for (std::string const &suggestion : ClosestWords(word, accept, kSuggestions)) {
        diagnostic.hints.push_back("did you mean '" + suggestion + "'?");
        diagnostic.fixes.push_back({diagnostic.range, suggestion});
    }
}

AI_CFunction const *FunctionNamed(std::string const &name)
{
    unsigned int nSID = AI_Symbol(name.c_str());
    return AI_IsFact(nSID) ? AI_Fact(nSID) : AI_IsAction(nSID) ? AI_Action(nSID) : nullptr;
}

void DescribeSignature(Diagnostic &diagnostic, AI_CFunction const *pFunction)
{
    if (!pFunction)
        return;
    CArray<int, int> const &params = pFunction->GetParams();
    diagnostic.hints.push_back("expected " + Signature(pFunction->GetSID()) + ", with "
                               + std::to_string(params.GetSize())
                               + (params.GetSize() == 1 ? " argument" : " arguments"));
    for (int i = 0; i < params.GetSize(); ++i)
        diagnostic.hints.push_back(ParamTypeName(params[i]) + ": " + AcceptedValues(params[i]));
}

void DescribeArgument(Diagnostic &diagnostic, AI_CFunction const *pFunction, int nIndex, std::string const &found)
{
    if (!pFunction || nIndex < 0 || nIndex >= pFunction->GetParams().GetSize())
        return;
    int nType = pFunction->GetParams()[nIndex];
    diagnostic.hints.push_back("argument " + std::to_string(nIndex + 1) + " of " + Signature(pFunction->GetSID())
                               + " is a " + ParamTypeName(nType) + ": " + AcceptedValues(nType));
    s_nAcceptedType = nType;
    if (AI_Symbol(found.c_str()) && !AI_IsOfType(nType, AI_Symbol(found.c_str())))
        Suggest(diagnostic, found, IsOfAcceptedType);
}

}  // namespace

Diagnostic ErrorDiagnostic(AI_CParseException const &error, Range const &range, ErrorContext const &context)
{
    Diagnostic diagnostic;
    diagnostic.range = range;
    diagnostic.analysisLine = error.GetLine();
    char code[8];
    std::snprintf(code, sizeof code, "E%03d", error.GetCause());
    diagnostic.code = code;
    std::string param = error.GetParam1().GetString();
    switch (error.GetCause()) {
    case AI_PE_INVALID_CHARACTER:
        diagnostic.message = param == "\n" ? "string not closed at the end of the line (a string cannot span lines)"
                                           : "invalid character " + Character(param);
        break;
    case AI_PE_PARSE_ERROR: {
        std::string found = context.found.empty() ? "end of file" : Quoted(context.found);
        std::string expected = ExpectedTokens(param);
        if (param.find("stack overflow") != std::string::npos)
            diagnostic.message = "nesting too deep at " + found + " (parser stack overflow)";
        else
            diagnostic.message
                = "syntax error: unexpected " + found + (expected.empty() ? "" : "; expected " + expected);
        break;
    }
    case AI_PE_INTEGER:
        diagnostic.message = "number " + Quoted(param) + " is out of range (-2147483647 to 2147483646)";
        break;
    case AI_PE_FACT_EXPECTED:
        diagnostic.message = "expected a fact, found " + Quoted(param);
        if (AI_IsAction(AI_Symbol(param.c_str())))
            diagnostic.hints.push_back(Quoted(param) + " is an action: actions come after '=>'");
        Suggest(diagnostic, param, IsFactSID);
        break;
    case AI_PE_ACTION_EXPECTED:
        diagnostic.message = "expected an action, found " + Quoted(param);
        if (AI_IsFact(AI_Symbol(param.c_str())))
            diagnostic.hints.push_back(Quoted(param) + " is a fact: facts come before '=>'");
        Suggest(diagnostic, param, IsActionSID);
        break;
    case AI_PE_EXPRESSION_EXPECTED:
        diagnostic.message = "expected a parameter word or a constant, found " + Quoted(param);
        Suggest(diagnostic, param, IsValueSID);
        break;
    case AI_PE_DEFINE_EXPECTED:
        diagnostic.message = "expected a define word, found " + Quoted(param);
        Suggest(diagnostic, param, IsDefineSID);
        break;
    case AI_PE_UNKNOWN_SYMBOL:
        diagnostic.message = "unknown word " + Quoted(param);
        Suggest(diagnostic, param, WordsFor(context));
        break;
    case AI_PE_PARAM_COUNT:
        diagnostic.message = "wrong number of arguments for " + Quoted(param);
        DescribeSignature(diagnostic, FunctionNamed(param));
        break;
    case AI_PE_WRONG_PARAM:
        diagnostic.message = "wrong argument " + Quoted(param) + " for " + Quoted(context.function);
        DescribeArgument(diagnostic, FunctionNamed(context.function), context.nArgument, context.found);
        break;
    case AI_PE_PROBABILITY:
        diagnostic.message = "invalid probability " + param + ": it must be from 1 to 100";
        break;
    case AI_PE_PROBABILITY_SUM:
        diagnostic.message = "the probabilities add up to " + param + "; they must add up to less than 100";
        break;
    case AI_PE_DUPLICATE_SYMBOL:
        diagnostic.message = Quoted(param) + " is already a word of another kind; it cannot name a constant";
        break;
    case AI_PE_NON_CONST_SYMBOL:
        diagnostic.message = Quoted(param) + " is not a constant; a constant's value is a number or a constant";
        Suggest(diagnostic, param, IsConstantSID);
        break;
    default:
        diagnostic.message = "unknown parse error";
        break;
    }
    return diagnostic;
}

Diagnostic UnopenableFile(std::string const &name, int nError)
{
    Diagnostic diagnostic;
    diagnostic.code = "E100";
    diagnostic.message = "cannot open file " + Quoted(name) + ": " + std::strerror(nError);
    return diagnostic;
}

}  // namespace stratagem
