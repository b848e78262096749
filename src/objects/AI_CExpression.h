// AI_CExpression: one argument of a fact test or action call (a parameter
// word, a quoted string or an integer); AI_CExprList: an argument list.
#ifndef STRATAGEM_OBJECTS_AI_CEXPRESSION_H
#define STRATAGEM_OBJECTS_AI_CEXPRESSION_H

#include "AI_CObject.h"

#define AI_EXPR_SYMBOL 0
#define AI_EXPR_STRING 1
#define AI_EXPR_INTEGER 2

class STRATAGEM_API AI_CExpression : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CExpression)

public:
    union Contents
    {
        unsigned int nSID;
        CString *pString;
        int nInteger;
    };

protected:
    int m_nType;
    Contents m_contents;

    AI_CExpression();

public:
    explicit AI_CExpression(unsigned int nSID);
    // Takes ownership of the string (which may be null).
    explicit AI_CExpression(CString *pString);
    explicit AI_CExpression(int nInteger);
    virtual ~AI_CExpression();

    int const &GetType() const { return m_nType; }
    Contents const &GetContents() const { return m_contents; }

    static int IsExpressionID(unsigned int nSID);

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual void Invalidate();
};

class STRATAGEM_API AI_CExprList : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CExprList)

protected:
    CTypedPtrList<CObList, AI_CExpression *> m_lstExpressions;

public:
    AI_CExprList();
    virtual ~AI_CExprList();

    CTypedPtrList<CObList, AI_CExpression *> const &GetExpressions() const { return m_lstExpressions; }

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual AI_CExpression *Add(AI_CExpression *pExpression);
};

#endif
