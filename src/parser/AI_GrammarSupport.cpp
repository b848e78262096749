#include "AI_GrammarSupport.h"

#include <cstring>

#include "../vocabulary/AI_Registry.h"
#include "AI_Grammar.tab.h"

namespace {

struct NamedToken
{
    int nCode;
    char const *pszName;
};

NamedToken const kTokens[AI_NAMED_TOKEN_COUNT] = {
    {0, "$"},
    {258, "TOK_RW_DEFRULE"},
    {259, "TOK_RW_DEFCONST"},
    {260, "TOK_RW_LOAD"},
    {261, "TOK_RW_LOAD_RANDOM"},
    {262, "TOK_RW_NOT"},
    {263, "TOK_RW_AND"},
    {264, "TOK_RW_XOR"},
    {265, "TOK_RW_OR"},
    {266, "TOK_RW_NOR"},
    {267, "TOK_RW_XNOR"},
    {268, "TOK_RW_NAND"},
    {269, "TOK_RW_LESS_THAN"},
    {270, "TOK_RW_LESS_OR_EQUAL"},
    {271, "TOK_RW_GREATER_THAN"},
    {272, "TOK_RW_GREATER_OR_EQUAL"},
    {273, "TOK_RW_EQUAL"},
    {274, "TOK_RW_NOT_EQUAL"},
    {275, "TOK_D_LOAD_IF_DEFINED"},
    {276, "TOK_D_LOAD_IF_NOT_DEFINED"},
    {277, "TOK_D_ELSE"},
    {278, "TOK_D_END_IF"},
    {279, "TOK_ARROW"},
    {280, "TOK_SYMBOL"},
    {281, "TOK_STRING"},
    {282, "TOK_INTEGER"},
    {'(', "'('"},
    {')', "')'"},
    {'#', "'#'"},
};

// More acceptable tokens than this are not listed.
int const kMaxListed = 4;

// The message buffer; messages are cut to its size less one.
int const kMessageSize = 4096;
char s_szMessage[kMessageSize];

void Append(char const *pszText)
{
    std::size_t nLength = std::strlen(s_szMessage);
    std::strncat(s_szMessage, pszText, kMessageSize - 1 - nLength);
}

}  // namespace

int AI_TokenCode(int nIndex) { return kTokens[nIndex].nCode; }

char const *AI_SyntaxErrorMessage(AI_TokenSet const &acceptable)
{
    int nCount = static_cast<int>(std::count(acceptable.abHas, acceptable.abHas + AI_NAMED_TOKEN_COUNT, true));
    s_szMessage[0] = '\0';
    Append("parse error");
    if (nCount < 1 || nCount > kMaxListed)
        return s_szMessage;
    char const *pszSeparator = ", expecting `";
    for (int i = 0; i < AI_NAMED_TOKEN_COUNT; ++i) {
        if (!acceptable.abHas[i])
            continue;
        Append(pszSeparator);
        Append(kTokens[i].pszName);
        Append("'");
        pszSeparator = " or `";
    }
    return s_szMessage;
}
