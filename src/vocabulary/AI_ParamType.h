// Parameter type codes and the tests of an argument value against them.
// An argument is a symbol (SID), a quoted string or an integer; each code
// accepts registered symbols of certain SID ranges, an integer range, or
// (code 24 alone) any string.
#ifndef STRATAGEM_VOCABULARY_AI_PARAMTYPE_H
#define STRATAGEM_VOCABULARY_AI_PARAMTYPE_H

#include "../platform/afx.h"

enum AI_ParamType
{
    AI_PT_REL_OP = 1,
    AI_PT_VALUE = 2,
    AI_PT_BUILDING = 3,
    AI_PT_RESEARCH_ITEM = 4,
    AI_PT_UNIT = 5,
    AI_PT_COMMODITY = 6,
    AI_PT_CIV = 7,
    AI_PT_AGE = 8,
    AI_PT_DIFFICULTY = 9,
    AI_PT_RESOURCE = 10,
    AI_PT_EVENT_TYPE = 11,
    AI_PT_EVENT_ID = 12,
    AI_PT_GOAL_ID = 13,
    AI_PT_MAP_SIZE = 14,
    AI_PT_MAP_TYPE = 15,
    AI_PT_PLAYER = 16,
    AI_PT_ACHIEVEMENT = 17,
    AI_PT_SCORE_VALUE = 18,
    AI_PT_STANCE = 19,
    AI_PT_STARTING_RESOURCES = 20,
    AI_PT_STRATEGIC_NUMBER = 21,
    AI_PT_TIMER_ID = 22,
    AI_PT_VICTORY_CONDITION = 23,
    AI_PT_STRING = 24,
    AI_PT_STRING_ID = 25,
    AI_PT_STRING_ID_START = 26,
    AI_PT_STRING_ID_RANGE = 27,
    AI_PT_DIFFICULTY_PARAMETER = 28,
    AI_PT_TAUNT_START = 29,
    AI_PT_TAUNT_RANGE = 30,
    AI_PT_WALL_TYPE = 31,
    AI_PT_RESEARCH_ITEM_OR_AGE = 32,
    AI_PT_BUILDING_OR_WALL = 33,
    AI_PT_WALL_ID = 34,
    AI_PT_SHARED_GOAL_ID = 35,
    AI_PT_SIGNAL_ID = 36,
    AI_PT_TAUNT_ID = 37
};

// Symbol argument: 1 when the SID is registered and lies in one of the
// code's ranges. A code outside 1..37 accepts every registered SID.
STRATAGEM_API int AI_IsOfType(int nType, unsigned int nSID);
// Integer argument: 1 when the value lies in the code's integer range.
STRATAGEM_API int AI_IsOfType(int nType, int nValue);
// String argument: 1 for AI_PT_STRING whatever the text.
STRATAGEM_API int AI_IsOfType(int nType, CString const &strText);

#endif
