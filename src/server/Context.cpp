#include "Context.h"

#include <algorithm>
#include <tuple>

#include "../vocabulary/AI_Vocabulary.h"

namespace stratagem::server {

namespace tok = stratagem::token;

namespace {

bool Before(int line, int column, Cursor cursor)
{
    return std::tie(line, column) < std::tie(cursor.line, cursor.column);
}

bool StartsBefore(Token const &token, Cursor cursor) { return Before(token.range.line, token.range.column, cursor); }

// The cursor stands inside the token or right after its last character.
bool Touches(Token const &token, Cursor cursor)
{
    return StartsBefore(token, cursor) && !Before(token.range.endLine, token.range.endColumn + 1, cursor);
}

bool InsideString(Token const &token, Cursor cursor)
{
    bool const closed = token.text.size() >= 2 && token.text.back() == '"';
    int const lastInside = closed ? token.range.endColumn : token.range.endColumn + 1;
    return StartsBefore(token, cursor) && !Before(token.range.endLine, lastInside, cursor);
}

bool IsConnective(int code) { return code >= tok::Not && code <= tok::Nand; }

// The '(' that opens the list holding tokens[..last], and how many items
// (words or whole lists) stand in that list after the '(' up to `last`.
// `open` is -1 when the tokens are at the top level.
struct Enclosing
{
    int open = -1;
    int items = 0;
};

Enclosing EnclosingList(std::vector<Token> const &tokens, int last)
{
    Enclosing result;
    int depth = 0;
    for (int i = last; i >= 0; --i) {
        int const code = tokens[i].code;
        if (code == ')') {
            if (depth == 0)
                ++result.items;
            ++depth;
        } else if (code == '(') {
            if (depth == 0) {
                result.open = i;
                return result;
            }
            --depth;
        } else if (depth == 0) {
            ++result.items;
        }
    }
    return result;
}

unsigned int FunctionOf(Token const &token)
{
    if (token.code != tok::Symbol)
        return 0;
    unsigned int const sid = AI_Symbol(token.text.c_str());
    return AI_IsFact(sid) || AI_IsAction(sid) ? sid : 0;
}

// The place of a list head: what the list's parent makes it.
Place HeadPlace(std::vector<Token> const &tokens, int open)
{
    Enclosing const parent = EnclosingList(tokens, open - 1);
    if (parent.open < 0)
        return Place::Command;
    int const parentHead = parent.open + 1;
    if (parentHead >= open)
        return Place::Nothing;
    int const code = tokens[parentHead].code;
    if (IsConnective(code))
        return Place::Condition;
    if (code != tok::Defrule)
        return Place::Nothing;
    // In a rule, the lists after '=>' at the rule's own depth are actions.
    int depth = 0;
    for (int i = parentHead + 1; i < open; ++i) {
        depth += tokens[i].code == '(' ? 1 : tokens[i].code == ')' ? -1 : 0;
        if (depth == 0 && tokens[i].code == tok::Arrow)
            return Place::Action;
    }
    return Place::Condition;
}

}  // namespace

bool IsWordToken(Token const &token)
{
    return token.code == tok::Symbol || token.code == tok::Integer
        || (token.code >= tok::Defrule && token.code <= tok::EndIf);
}

bool IsStringToken(Token const &token) { return token.code == tok::String; }

Token const *TokenAt(std::vector<Token> const &tokens, Cursor cursor)
{
    auto const after = std::partition_point(tokens.begin(), tokens.end(),
                                            [&](Token const &token) { return StartsBefore(token, cursor); });
    // The token that starts at the cursor, else the one the cursor ends.
    if (after != tokens.end() && after->range.line == cursor.line && after->range.column == cursor.column)
        return &*after;
    if (after != tokens.begin() && Touches(*(after - 1), cursor))
        return &*(after - 1);
    return nullptr;
}

CursorContext ContextAt(std::vector<Token> const &tokens, Cursor cursor)
{
    CursorContext context;
    context.prefixRange = {cursor.line, cursor.column, cursor.line, cursor.column - 1};
    int const before
        = static_cast<int>(std::partition_point(tokens.begin(), tokens.end(),
                                                [&](Token const &token) { return StartsBefore(token, cursor); })
                           - tokens.begin());
    int last = before - 1;
    if (last >= 0) {
        Token const &token = tokens[last];
        if (IsStringToken(token) && InsideString(token, cursor)) {
            Enclosing const list = EnclosingList(tokens, last - 1);
            int const head = list.open + 1;
            bool const load = list.open >= 0 && head < last
                && (tokens[head].code == tok::Load || tokens[head].code == tok::LoadRandom);
            if (load && token.range.line == cursor.line) {
                context.place = Place::LoadString;
                context.prefix = token.text.substr(1, cursor.column - token.range.column - 1);
                context.prefixRange = {cursor.line, token.range.column + 1, cursor.line, cursor.column - 1};
            }
            return context;
        }
        if (IsWordToken(token) && Touches(token, cursor) && token.range.line == cursor.line) {
            context.current = &token;
            context.prefix = token.text.substr(0, cursor.column - token.range.column);
            context.prefixRange = {cursor.line, token.range.column, cursor.line, cursor.column - 1};
            --last;
        } else if (Touches(token, cursor) && token.code != '(' && token.code != ')' && token.code != '#') {
            return context;  // inside a string, or right after a stray character
        }
    }

    if (last >= 0 && tokens[last].code == '#') {
        context.place = Place::Directive;
        return context;
    }
    if (last >= 0 && (tokens[last].code == tok::LoadIfDefined || tokens[last].code == tok::LoadIfNotDefined)) {
        context.place = Place::Define;
        return context;
    }

    Enclosing const list = EnclosingList(tokens, last);
    if (list.open < 0)
        return context;
    int const head = list.open + 1;
    if (head > last) {
        context.place = HeadPlace(tokens, list.open);
        return context;
    }
    if (unsigned int const function = FunctionOf(tokens[head])) {
        context.place = Place::Argument;
        context.function = function;
        context.argument = list.items - 1;
    }
    return context;
}

}  // namespace stratagem::server
