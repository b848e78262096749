// Stratagem: analysis of computer-player rule scripts.
// The whole public interface of the library in one include.
#ifndef STRATAGEM_H
#define STRATAGEM_H

#include "check/Check.h"
#include "objects/AI_Objects.h"
#include "parser/AI_CException.h"
#include "parser/AI_CParser.h"
#include "platform/afx.h"
#include "strategy/AI_CStrategy.h"
#include "vocabulary/AI_Vocabulary.h"

#endif
