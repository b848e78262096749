// Scanning a file without parsing it: the cost of reading and tokenising
// alone, against which a full parse is measured. Exported for the benchmark,
// which measures the library as a host links it; not part of the interface
// that hosts program against.
#ifndef STRATAGEM_PARSER_AI_TOKENCOUNT_H
#define STRATAGEM_PARSER_AI_TOKENCOUNT_H

#include "../platform/export.h"

class AI_CParser;

// Opens the file, scans it to its end as Parse would (this parser current,
// line 1) and answers the number of tokens, the end of input not counted.
// Throws as Parse does for a file that cannot be opened or a scan error.
STRATAGEM_API long AI_CountTokens(AI_CParser *pParser, char const *pszFilename);

#endif
