// Where a script object, token or production lies in the text of its file:
// byte offsets from the start of the text as read in text mode (a carriage
// return before a line feed is gone, so a CR LF file and its LF twin give
// the same offsets, lines and columns), the end exclusive.
#ifndef STRATAGEM_OBJECTS_AI_SOURCESPAN_H
#define STRATAGEM_OBJECTS_AI_SOURCESPAN_H

#include <cstdint>

struct AI_SourceSpan
{
    std::int32_t nBegin;
    std::int32_t nEnd;
};

// The span of an object that no script text produced (built by hand).
AI_SourceSpan const AI_NO_SPAN = {-1, -1};

#endif
