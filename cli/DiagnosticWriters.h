// The formats in which check mode writes its diagnostics.
#ifndef STRATAGEM_CLI_DIAGNOSTICWRITERS_H
#define STRATAGEM_CLI_DIAGNOSTICWRITERS_H

#include <iosfwd>
#include <vector>

#include "CheckSources.h"
#include "Options.h"
#include "check/Check.h"

struct WriteContext
{
    CliSources const &sources;  // for the source lines the text format quotes
    bool bColor;                // ANSI colours (text format only)
};

// Writes every diagnostic, in the order given, in `format`.
void WriteDiagnostics(std::ostream &out, CheckFormat format, std::vector<stratagem::Diagnostic> const &diagnostics,
                      WriteContext const &context);

#endif
