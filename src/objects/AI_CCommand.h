// Commands of a script file: the protocol base AI_CCommand, the rule
// (AI_CDefruleCommand), the constant definition (AI_CDefconstCommand) and
// the command list of one file (AI_CCommandList).
#ifndef STRATAGEM_OBJECTS_AI_CCOMMAND_H
#define STRATAGEM_OBJECTS_AI_CCOMMAND_H

#include "AI_CObject.h"

class AI_CCEList;
class AI_CActionList;
class AI_CStrategy;

class STRATAGEM_API AI_CCommand : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CCommand)

protected:
    AI_CCommand();

public:
    virtual ~AI_CCommand();

    // The parser's acceptance test right after construction.
    virtual int IsValid() const;
    // One evaluation pass; 0 stops the enclosing list's Check.
    virtual int Check();
    // Makes the command's effect known to the strategy.
    virtual void Load();
    // Nonzero when Load has nothing left to do.
    virtual int IsLoaded() const;
};

class STRATAGEM_API AI_CDefruleCommand : public AI_CCommand
{
    DECLARE_DYNCREATE(AI_CDefruleCommand)

protected:
    AI_CCEList *m_pCEs;
    AI_CActionList *m_pActions;

    AI_CDefruleCommand();

public:
    // Takes ownership of both lists.
    AI_CDefruleCommand(AI_CCEList *pCEs, AI_CActionList *pActions);
    virtual ~AI_CDefruleCommand();

    AI_CCEList const *GetCEs() const { return m_pCEs; }
    AI_CActionList const *GetActions() const { return m_pActions; }

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual int Check();
    virtual void Invalidate();
};

class STRATAGEM_API AI_CDefconstCommand : public AI_CCommand
{
    DECLARE_DYNCREATE(AI_CDefconstCommand)

protected:
    unsigned int m_nSID;
    int m_nValue;
    AI_CStrategy *m_pStrategy;

    AI_CDefconstCommand();

public:
    AI_CDefconstCommand(unsigned int nSID, int nValue, AI_CStrategy *pStrategy);
    virtual ~AI_CDefconstCommand();

    unsigned int const &GetSID() const { return m_nSID; }
    int const &GetValue() const { return m_nValue; }

    static int IsConstantID(unsigned int nSID);

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual int Check();
    virtual void Load();
    virtual int IsLoaded() const;
    virtual void Invalidate();
};

class STRATAGEM_API AI_CCommandList : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CCommandList)

protected:
    CTypedPtrList<CObList, AI_CCommand *> m_lstCommands;

public:
    AI_CCommandList();
    virtual ~AI_CCommandList();

    CTypedPtrList<CObList, AI_CCommand *> const &GetCommands() const { return m_lstCommands; }

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    // Moves every command of the other list to the end of this one; the
    // other list is left empty but not deleted.
    virtual void Add(AI_CCommandList *pCommands);
    virtual AI_CCommand *Add(AI_CCommand *pCommand);
    virtual int Check();
    virtual void Load();
};

#endif
