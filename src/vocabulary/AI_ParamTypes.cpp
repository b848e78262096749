#include "AI_ParamType.h"

#include "AI_Registry.h"

namespace {

// Inclusive SID range; an empty range has nFirst 0 (no symbol has SID 0).
struct SidRange
{
    unsigned int nFirst;
    unsigned int nLast;
};

// Inclusive integer range, used only where bInts is set.
struct TypeRule
{
    SidRange symbols[2];
    bool bInts;
    int nMin;
    int nMax;
};

SidRange const kNone = {0, 0};
SidRange const kAges = {1200, 1299};
SidRange const kBuildings = {1300, 1399};
SidRange const kResearch = {2400, 2599};
SidRange const kResources = {2600, 2699};
SidRange const kStartingResources = {2700, 2799};
SidRange const kWalls = {3300, 3399};

int const kShortMin = -32768;
int const kShortMax = 32767;

// Indexed by type code; entry 0 is never used.
TypeRule const kRules[] = {
    /*  0 unused                   */ {{kNone, kNone}, false, 0, 0},
    /*  1 AI_PT_REL_OP             */ {{{2300, 2399}, kNone}, false, 0, 0},
    /*  2 AI_PT_VALUE              */ {{kNone, kNone}, true, kShortMin, kShortMax},
    /*  3 AI_PT_BUILDING           */ {{kBuildings, kNone}, false, 0, 0},
    /*  4 AI_PT_RESEARCH_ITEM      */ {{kResearch, kNone}, false, 0, 0},
    /*  5 AI_PT_UNIT               */ {{{3000, 3199}, kNone}, false, 0, 0},
    /*  6 AI_PT_COMMODITY          */ {{kResources, kNone}, false, 0, 0},
    /*  7 AI_PT_CIV                */ {{{1400, 1499}, kNone}, false, 0, 0},
    /*  8 AI_PT_AGE                */ {{kAges, kNone}, false, 0, 0},
    /*  9 AI_PT_DIFFICULTY         */ {{{1600, 1699}, kNone}, false, 0, 0},
    /* 10 AI_PT_RESOURCE           */ {{kResources, kNone}, false, 0, 0},
    /* 11 AI_PT_EVENT_TYPE         */ {{{1900, 1999}, kNone}, false, 0, 0},
    /* 12 AI_PT_EVENT_ID           */ {{kNone, kNone}, true, 0, 255},
    /* 13 AI_PT_GOAL_ID            */ {{kNone, kNone}, true, 1, 40},
    /* 14 AI_PT_MAP_SIZE           */ {{{2000, 2099}, kNone}, false, 0, 0},
    /* 15 AI_PT_MAP_TYPE           */ {{{2100, 2199}, kNone}, false, 0, 0},
    /* 16 AI_PT_PLAYER             */ {{{2200, 2299}, {3400, 3499}}, true, 1, 8},
    /* 17 AI_PT_ACHIEVEMENT        */ {{{1100, 1199}, kNone}, false, 0, 0},
    /* 18 AI_PT_SCORE_VALUE        */ {{kStartingResources, kNone}, true, kShortMin, kShortMax},
    /* 19 AI_PT_STANCE             */ {{{1800, 1899}, kNone}, false, 0, 0},
    /* 20 AI_PT_STARTING_RESOURCES */ {{kStartingResources, kNone}, false, 0, 0},
    /* 21 AI_PT_STRATEGIC_NUMBER   */ {{{2800, 2999}, kNone}, false, 0, 0},
    /* 22 AI_PT_TIMER_ID           */ {{kNone, kNone}, true, 1, 255},
    /* 23 AI_PT_VICTORY_CONDITION  */ {{{3200, 3299}, kNone}, false, 0, 0},
    /* 24 AI_PT_STRING             */ {{kNone, kNone}, false, 0, 0},
    /* 25 AI_PT_STRING_ID          */ {{kNone, kNone}, true, kShortMin, kShortMax},
    /* 26 AI_PT_STRING_ID_START    */ {{kNone, kNone}, true, kShortMin, kShortMax},
    /* 27 AI_PT_STRING_ID_RANGE    */ {{kNone, kNone}, true, kShortMin, kShortMax},
    /* 28 AI_PT_DIFFICULTY_PARAMETER */ {{{1700, 1799}, kNone}, false, 0, 0},
    /* 29 AI_PT_TAUNT_START        */ {{kNone, kNone}, true, kShortMin, kShortMax},
    /* 30 AI_PT_TAUNT_RANGE        */ {{kNone, kNone}, true, kShortMin, kShortMax},
    /* 31 AI_PT_WALL_TYPE          */ {{kWalls, kNone}, false, 0, 0},
    /* 32 AI_PT_RESEARCH_ITEM_OR_AGE */ {{kResearch, kAges}, false, 0, 0},
    /* 33 AI_PT_BUILDING_OR_WALL   */ {{kBuildings, kWalls}, false, 0, 0},
    /* 34 AI_PT_WALL_ID            */ {{kNone, kNone}, true, 1, 2},
    /* 35 AI_PT_SHARED_GOAL_ID     */ {{kNone, kNone}, true, 0, 255},
    /* 36 AI_PT_SIGNAL_ID          */ {{kNone, kNone}, true, 0, 255},
    /* 37 AI_PT_TAUNT_ID           */ {{kNone, kNone}, true, kShortMin, kShortMax},
};

int const kLastCode = static_cast<int>(sizeof kRules / sizeof kRules[0]) - 1;
static_assert(sizeof kRules / sizeof kRules[0] == AI_PT_TAUNT_ID + 1, "one rule per type code");

bool IsKnownCode(int nType) { return nType >= 1 && nType <= kLastCode; }

bool InRange(SidRange const &range, unsigned int nSID) { return nSID >= range.nFirst && nSID <= range.nLast; }

}  // namespace

int AI_IsOfType(int nType, unsigned int nSID)
{
    if (!IsKnownCode(nType))
        return vocabulary::IsRegistered(nSID);
    TypeRule const &rule = kRules[nType];
    for (SidRange const &range : rule.symbols)
        if (range.nFirst != 0 && InRange(range, nSID))
            return vocabulary::IsRegistered(nSID);
    return 0;
}

int AI_IsOfType(int nType, int nValue)
{
    if (!IsKnownCode(nType))
        return 0;
    TypeRule const &rule = kRules[nType];
    return rule.bInts && nValue >= rule.nMin && nValue <= rule.nMax ? 1 : 0;
}

int AI_IsOfType(int nType, CString const &) { return nType == AI_PT_STRING ? 1 : 0; }
