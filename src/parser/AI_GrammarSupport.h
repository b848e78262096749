// What the generated grammar needs besides the parser's actions: the wording
// of syntax errors and the growth of the parser's stacks. Internal to the
// library.
#ifndef STRATAGEM_PARSER_AI_GRAMMARSUPPORT_H
#define STRATAGEM_PARSER_AI_GRAMMARSUPPORT_H

#include <algorithm>
#include <vector>

#include "AI_CParser.h"

// The tokens a syntax error may name: end of input, the 25 named tokens by
// code, then "(", ")" and "#". This is also the order of the names.
#define AI_NAMED_TOKEN_COUNT 29

// The token code at an index of that order.
int AI_TokenCode(int nIndex);

// Which of those tokens the parser could have accepted where it stopped.
struct AI_TokenSet
{
    bool abHas[AI_NAMED_TOKEN_COUNT];
};

// "parse error", followed by the acceptable tokens when there are one to
// four of them. The text lives in the process-wide message buffer until the
// next syntax error.
char const *AI_SyntaxErrorMessage(AI_TokenSet const &acceptable);

// The stacks hold at most this many entries.
#define AI_PARSER_STACK_MAX 10000

// Doubles the parser's state, value and location stacks (up to the maximum), moving
// what they hold; a full stack at the maximum is a parse error. The grown
// stacks live in process-wide storage that later parses reuse, so a parse
// that ends by an exception leaves nothing to free.
template <class State, class Value, class Location, class Size>
void AI_GrowParserStacks(State **ppStates, Value **ppValues, Location **ppLocations, Size *pnSize)
{
    static std::vector<State> s_states;
    static std::vector<Value> s_values;
    static std::vector<Location> s_locations;
    if (*pnSize >= AI_PARSER_STACK_MAX)
        ai_yyerror("parser stack overflow");
    Size nNewSize = std::min<Size>(*pnSize * 2, AI_PARSER_STACK_MAX);
    if (*ppStates != s_states.data()) {
        // Still on the parser's initial stacks: copy them over.
        s_states.assign(*ppStates, *ppStates + *pnSize);
        s_values.assign(*ppValues, *ppValues + *pnSize);
        s_locations.assign(*ppLocations, *ppLocations + *pnSize);
    }
    s_states.resize(nNewSize);
    s_values.resize(nNewSize);
    s_locations.resize(nNewSize);
    *ppStates = s_states.data();
    *ppValues = s_values.data();
    *ppLocations = s_locations.data();
    *pnSize = nNewSize;
}

#endif
