// Shared pieces of the object-model tests: a fixture with the built-in
// vocabulary, listing capture, and probe objects whose answers a test sets
// and whose calls and destruction it observes.
#ifndef STRATAGEM_TESTS_OBJECTS_TESTSUPPORT_H
#define STRATAGEM_TESTS_OBJECTS_TESTSUPPORT_H

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "objects/AI_Objects.h"
#include "vocabulary/AI_Vocabulary.h"

// Built-in SIDs used by the tests.
enum : unsigned int {
    kTrue = 300,          // fact without parameters
    kFoodAmount = 391,    // fact (rel-op, value)
    kDoNothing = 600,     // action without parameters
    kChatToAll = 504,     // action (string)
    kTrain = 614,         // action (unit)
    kSmallMap = 131,      // define
    kDeathMatch = 100,    // define
    kLessThan = 2300,     // param
    kVillager = 3110,     // param
};

class VocabularyTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        AI_AddFacts();
        AI_AddActions();
        AI_AddDefines();
        AI_AddParams();
    }
    void TearDown() override { AI_DeleteAll(); }
};

inline std::string Listing(AI_CObject const &object, int nLevel = 0)
{
    std::ostringstream os;
    object.PrettyPrint(os, nLevel);
    return os.str();
}

inline std::string Describe(AI_CObject &object)
{
    return object.GetDescription().GetString();
}

// The direct children, as GetObjects appends them to an empty list.
inline std::vector<AI_CObject *> Children(AI_CObject const &object)
{
    CTypedPtrList<CObList, AI_CObject *> list;
    object.GetObjects(list);
    std::vector<AI_CObject *> result;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        result.push_back(list.GetNext(pos));
    return result;
}

// Records its id in a log when destroyed.
template <class BASE>
class Tracked : public BASE
{
public:
    template <class... ARGS>
    Tracked(std::vector<int> *pLog, int nId, ARGS... args) : BASE(args...), m_pLog(pLog), m_nId(nId)
    {
    }
    ~Tracked() override { m_pLog->push_back(m_nId); }

private:
    std::vector<int> *m_pLog;
    int m_nId;
};

// A condition with a set answer that counts its evaluations.
class ProbeCE : public AI_CCE
{
public:
    ProbeCE(int nAnswer, int *pCalls) : m_nAnswer(nAnswer), m_pCalls(pCalls) {}
    int IsTrue() const override
    {
        ++*m_pCalls;
        return m_nAnswer;
    }

private:
    int m_nAnswer;
    int *m_pCalls;
};

// An action with a set result that counts its executions.
class ProbeAction : public AI_CAction
{
public:
    ProbeAction(int nResult, int *pCalls) : AI_CAction(kDoNothing, nullptr), m_nResult(nResult), m_pCalls(pCalls) {}
    int Execute() override
    {
        ++*m_pCalls;
        return m_nResult;
    }

private:
    int m_nResult;
    int *m_pCalls;
};

// A command with a set Check answer that counts its checks and loads.
class ProbeCommand : public AI_CCommand
{
public:
    ProbeCommand(int nCheck, int nLoaded, std::vector<std::string> *pLog, std::string strName)
        : m_nCheck(nCheck), m_nLoaded(nLoaded), m_pLog(pLog), m_strName(std::move(strName))
    {
    }
    int Check() override
    {
        m_pLog->push_back("check " + m_strName);
        return m_nCheck;
    }
    void Load() override { m_pLog->push_back("load " + m_strName); }
    int IsLoaded() const override { return m_nLoaded; }

private:
    int m_nCheck;
    int m_nLoaded;
    std::vector<std::string> *m_pLog;
    std::string m_strName;
};

inline CString *Str(char const *psz)
{
    return new CString(psz);
}

// An argument list holding the given expressions, in order.
inline AI_CExprList *Args(std::initializer_list<AI_CExpression *> expressions)
{
    AI_CExprList *pList = new AI_CExprList;
    for (AI_CExpression *p : expressions)
        pList->Add(p);
    return pList;
}

// A rule with one condition and one action.
inline AI_CDefruleCommand *Rule(AI_CCE *pCE, AI_CAction *pAction)
{
    AI_CCEList *pCEs = new AI_CCEList;
    pCEs->Add(pCE);
    AI_CActionList *pActions = new AI_CActionList;
    pActions->Add(pAction);
    return new AI_CDefruleCommand(pCEs, pActions);
}

// A command list holding the given commands, in order.
inline AI_CCommandList *Commands(std::initializer_list<AI_CCommand *> commands)
{
    AI_CCommandList *pList = new AI_CCommandList;
    for (AI_CCommand *p : commands)
        pList->Add(p);
    return pList;
}

// A load command whose loaded list a test sets by hand, as loading would.
class HandLoad : public AI_CLoadCommand
{
public:
    explicit HandLoad(char const *pszFilename, AI_CCommandList *pLoaded = nullptr)
        : AI_CLoadCommand(Str(pszFilename), nullptr)
    {
        m_pCommands = pLoaded;
    }
    HandLoad(CString *pFilename, AI_CCommandList *pLoaded) : AI_CLoadCommand(pFilename, nullptr)
    {
        m_pCommands = pLoaded;
    }
    void SetLoaded(AI_CCommandList *pLoaded) { m_pCommands = pLoaded; }
};

// A random load whose choice and loaded list a test sets by hand.
class HandLoadRandom : public AI_CLoadRandomCommand
{
public:
    HandLoadRandom(AI_CLoadOptionList *pOptions, CString *pDefault) : AI_CLoadRandomCommand(pOptions, pDefault, nullptr)
    {
    }
    void SetLoaded(CString const *pChosen, AI_CCommandList *pLoaded)
    {
        m_pLoaded = pChosen;
        m_pCommands = pLoaded;
    }
};

// The runtime generator, computed on its own:
// state = state * 214013 + 2531011, r = (state >> 16) & 0x7FFF.
inline int NextDraw(unsigned int &state)
{
    state = state * 214013u + 2531011u;
    return static_cast<int>((state >> 16) & 0x7FFF);
}

// The state before the given one: solves prev * 214013 + 2531011 = state
// (modulo 2^32) with the inverse of the odd multiplier.
inline unsigned int StateBefore(unsigned int state)
{
    unsigned int nInverse = 214013u;
    for (int i = 0; i < 5; ++i)
        nInverse *= 2u - 214013u * nInverse;
    return (state - 2531011u) * nInverse;
}

// A seed whose first draw is r.
inline unsigned int SeedFor(int r)
{
    unsigned int nSeed = StateBefore(static_cast<unsigned int>(r) << 16);
    unsigned int state = nSeed;
    EXPECT_EQ(r, NextDraw(state));
    return nSeed;
}

// The percentage of a draw: the floor of 100 r / 32767.
inline int PercentOf(int r)
{
    return 100 * r / 32767;
}

#endif
