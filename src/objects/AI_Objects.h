// Umbrella header of the script object model.
#ifndef STRATAGEM_OBJECTS_AI_OBJECTS_H
#define STRATAGEM_OBJECTS_AI_OBJECTS_H

#include "AI_CAction.h"
#include "AI_CCE.h"
#include "AI_CCommand.h"
#include "AI_CExpression.h"
#include "AI_CLoadCommand.h"
#include "AI_CObject.h"

#endif
