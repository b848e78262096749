// Where a token or a production lies in the text being parsed: byte offsets
// from the start of the text, the end exclusive. Internal to the library.
#ifndef STRATAGEM_PARSER_AI_SPAN_H
#define STRATAGEM_PARSER_AI_SPAN_H

struct AI_Span
{
    int nBegin;
    int nEnd;
};

#endif
