// stratagem --check: every FILE checked as a main file, the diagnostics of all
// of them written to standard output in one format.
#ifndef STRATAGEM_CLI_CHECKMODE_H
#define STRATAGEM_CLI_CHECKMODE_H

#include "Options.h"

// Returns the exit status: 0 no errors, 1 errors (or warnings under
// --werror). Throws what the check throws (an allocation failure).
int RunCheck(CliOptions const &options);

#endif
