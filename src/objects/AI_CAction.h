// AI_CAction: one action call of a rule; AI_CActionList: a rule's actions.
#ifndef STRATAGEM_OBJECTS_AI_CACTION_H
#define STRATAGEM_OBJECTS_AI_CACTION_H

#include "AI_CObject.h"

class AI_CExprList;

class STRATAGEM_API AI_CAction : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CAction)

protected:
    unsigned int m_nSID;
    AI_CExprList *m_pExpressions;

    AI_CAction();

public:
    // Takes ownership of the argument list (which may be null).
    AI_CAction(unsigned int nSID, AI_CExprList *pExpressions);
    virtual ~AI_CAction();

    unsigned int const &GetSID() const { return m_nSID; }
    AI_CExprList const *GetExpressions() const { return m_pExpressions; }

    static int IsActionID(unsigned int nSID);

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual void Invalidate();
    virtual int Execute();
};

class STRATAGEM_API AI_CActionList : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CActionList)

protected:
    CTypedPtrList<CObList, AI_CAction *> m_lstActions;

public:
    AI_CActionList();
    virtual ~AI_CActionList();

    CTypedPtrList<CObList, AI_CAction *> const &GetActions() const { return m_lstActions; }

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual AI_CAction *Add(AI_CAction *pAction);
    virtual int Execute();
};

#endif
