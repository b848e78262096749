// Scanning a file without parsing it: the cost of reading and tokenising
// alone, against which a full parse is measured. Internal to the library.
#ifndef STRATAGEM_PARSER_AI_TOKENCOUNT_H
#define STRATAGEM_PARSER_AI_TOKENCOUNT_H

class AI_CParser;

// Opens the file, scans it to its end as Parse would (this parser current,
// line 1) and answers the number of tokens, the end of input not counted.
// Throws as Parse does for a file that cannot be opened or a scan error.
long AI_CountTokens(AI_CParser *pParser, char const *pszFilename);

#endif
