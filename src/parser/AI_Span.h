// Where a token or a production lies in the text being parsed: the span
// script objects keep. Internal to the library.
#ifndef STRATAGEM_PARSER_AI_SPAN_H
#define STRATAGEM_PARSER_AI_SPAN_H

#include "../objects/AI_SourceSpan.h"

using AI_Span = AI_SourceSpan;

#endif
