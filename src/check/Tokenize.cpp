// The scanner over a text in memory, for editors.
#include "../parser/AI_CheckParser.h"
#include "AI_Grammar.tab.h"
#include "Check.h"
#include "CheckText.h"

namespace stratagem {

namespace {

// Where a byte of the converted text stood in the text as given.
int Origin(ScriptText const &script, int nOffset)
{
    if (script.origins.empty())
        return nOffset;
    if (nOffset >= static_cast<int>(script.origins.size()))
        return script.origins.back();
    return script.origins[nOffset];
}

}  // namespace

std::vector<Token> Tokenize(std::string const &text)
{
    ScriptText script = ReadTextMode(std::string(text));
    LineMap lines(text);
    std::vector<Token> tokens;
    AI_CCheckParser::ScanText(script.text.data(), script.text.size(), [&](int nCode, char const *, AI_Span span) {
        if (nCode == AI_TOKEN_BROKEN_STRING)
            --span.nEnd;  // the line feed that cut the string is not part of it
        AI_Span original = {Origin(script, span.nBegin), Origin(script, span.nBegin)};
        if (span.nEnd > span.nBegin)
            original.nEnd = Origin(script, span.nEnd - 1) + 1;
        Token token;
        token.code = nCode == AI_TOKEN_INVALID ? -1 : nCode < 0 ? TOK_STRING : nCode;
        token.text = text.substr(original.nBegin, original.nEnd - original.nBegin);
        token.range = lines.ToRange(original);
        tokens.push_back(token);
    });
    return tokens;
}

}  // namespace stratagem
