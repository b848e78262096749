// The wording of check mode's diagnostics: readable messages, the hints
// and fixes for each cause, and the warning codes. Internal to the library.
#ifndef STRATAGEM_CHECK_CHECKMESSAGES_H
#define STRATAGEM_CHECK_CHECKMESSAGES_H

#include <string>

#include "Check.h"

class AI_CParseException;

namespace stratagem {

char const kUnusedConstant[] = "W001";
char const kLoadedTwice[] = "W002";
char const kOptionNeverDrawn[] = "W003";
char const kIdenticalRule[] = "W004";
char const kNeverFires[] = "W005";
char const kByteOrderMarkSkipped[] = "W006";
char const kConstantDefinedAgain[] = "W007";

// What the parser knew where an error arose.
struct ErrorContext
{
    int nPrevious = 0;        // code of the token before the offending one
    bool bInActions = false;  // a rule's arrow was passed
    std::string found;        // the source text the error points at
    std::string function;     // the fact or action whose arguments are wrong
    int nArgument = 0;        // which of them (0 for the first)
};

// The diagnostic of a script error (without file and chain).
Diagnostic ErrorDiagnostic(AI_CParseException const &error, Range const &range, ErrorContext const &context);

// E100 for a file that cannot be read (without file, range and chain).
Diagnostic UnopenableFile(std::string const &name, int nError);

}  // namespace stratagem

#endif
