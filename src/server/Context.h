// What the text around a cursor is, read from the scanner's tokens: the
// list the cursor stands in, the function heading it and which argument
// the cursor is at. Completion, signature help and hover start here.
#ifndef STRATAGEM_SERVER_CONTEXT_H
#define STRATAGEM_SERVER_CONTEXT_H

#include <string>
#include <vector>

#include "../check/Check.h"

namespace stratagem::server {

enum class Place
{
    Nothing,    // nowhere anything can be completed
    Command,    // the keyword of a top-level command: defrule, defconst, load ...
    Directive,  // after '#': load-if-defined, else ...
    Define,     // the word after #load-if-defined / #load-if-not-defined
    Condition,  // the head of a condition: a fact or not/and/or ...
    Action,     // the head of an action
    Argument,   // an argument of a fact or action
    LoadString  // inside the file name string of a load
};

struct Cursor
{
    int line = 1;    // 1-based
    int column = 1;  // 1-based byte column of the character after the cursor
};

struct CursorContext
{
    Place place = Place::Nothing;
    unsigned int function = 0;       // the fact or action whose argument list the cursor is in
    int argument = -1;               // 0-based argument index in that list
    std::string prefix;              // the part of the word (or string) before the cursor
    Range prefixRange;               // where the prefix stands (empty when there is none)
    Token const *current = nullptr;  // the token under or just before the cursor, if a word
};

// `tokens` is the Tokenize output of the whole text.
CursorContext ContextAt(std::vector<Token> const &tokens, Cursor cursor);

// The token that contains the cursor or ends just before it; null when none.
Token const *TokenAt(std::vector<Token> const &tokens, Cursor cursor);

bool IsWordToken(Token const &token);
bool IsStringToken(Token const &token);

}  // namespace stratagem::server

#endif
