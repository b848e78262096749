// Conditional elements: AI_CCE (base), AI_CTestCE (a fact test), AI_COpCE
// (a logical operator over one or two CEs) and AI_CCEList (a rule's
// conditions).
#ifndef STRATAGEM_OBJECTS_AI_CCE_H
#define STRATAGEM_OBJECTS_AI_CCE_H

#include "AI_CObject.h"

class AI_CExprList;

class STRATAGEM_API AI_CCE : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CCE)

protected:
    AI_CCE();

public:
    virtual ~AI_CCE();

    virtual int IsValid() const;
    virtual int IsTrue() const;
};

class STRATAGEM_API AI_CTestCE : public AI_CCE
{
    DECLARE_DYNCREATE(AI_CTestCE)

protected:
    unsigned int m_nSID;
    AI_CExprList *m_pExpressions;

    AI_CTestCE();

public:
    // Takes ownership of the argument list (which may be null).
    AI_CTestCE(unsigned int nSID, AI_CExprList *pExpressions);
    virtual ~AI_CTestCE();

    unsigned int const &GetSID() const { return m_nSID; }
    AI_CExprList const *GetExpressions() const { return m_pExpressions; }

    static int IsFactID(unsigned int nSID);

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual int IsTrue() const;
    virtual void Invalidate();
};

class STRATAGEM_API AI_COpCE : public AI_CCE
{
    DECLARE_DYNCREATE(AI_COpCE)

public:
    // A fixed underlying type keeps any 32-bit value representable, so that
    // IsValid can reject an out-of-range operator.
    enum Op : int
    {
        opNot,
        opAnd,
        opOr,
        opXor,
        opNand,
        opNor,
        opXnor
    };

protected:
    Op m_nOp;
    AI_CCE *m_pCE1;
    AI_CCE *m_pCE2;

    AI_COpCE();

public:
    // Takes ownership of both operands; the second is null for opNot.
    AI_COpCE(Op nOp, AI_CCE *pCE1, AI_CCE *pCE2);
    virtual ~AI_COpCE();

    Op const &GetOp() const { return m_nOp; }
    AI_CCE const *GetCE1() const { return m_pCE1; }
    AI_CCE const *GetCE2() const { return m_pCE2; }

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual int IsTrue() const;
    virtual void Invalidate();
};

class STRATAGEM_API AI_CCEList : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CCEList)

protected:
    CTypedPtrList<CObList, AI_CCE *> m_lstCEs;

public:
    AI_CCEList();
    virtual ~AI_CCEList();

    CTypedPtrList<CObList, AI_CCE *> const &GetCEs() const { return m_lstCEs; }

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual AI_CCE *Add(AI_CCE *pCE);
    virtual int IsTrue() const;
};

#endif
