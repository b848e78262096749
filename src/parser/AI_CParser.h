// AI_CParser: turns one script file after another into command lists for a
// strategy. While a file is parsed the parser owns every object and string
// that no parent owns yet (the remembered objects and strings), so that a
// parse that fails frees its partial tree exactly once.
#ifndef STRATAGEM_PARSER_AI_CPARSER_H
#define STRATAGEM_PARSER_AI_CPARSER_H

#include "../platform/afx.h"

class AI_CStrategy;
class AI_CFunction;
class AI_CCommandList;
class AI_CCommand;
class AI_CLoadOptionList;
class AI_CLoadOption;
class AI_CCEList;
class AI_CCE;
class AI_CActionList;
class AI_CAction;
class AI_CExprList;
class AI_CExpression;

// The generated scanner and grammar, and the grammar's error hook, call the
// parser's protected operations on the current parser.
int ai_yylex();
int ai_yyparse();
void ai_yyerror(char const *pszMessage);

class STRATAGEM_API AI_CParser
{
    friend int ai_yylex();
    friend int ai_yyparse();
    friend void ai_yyerror(char const *pszMessage);

protected:
    CTypedPtrList<CObList, CObject *> m_lstObjects;
    CTypedPtrList<CPtrList, CString *> m_lstStrings;
    CString m_strDirectory;
    CString m_strExtension;
    AI_CStrategy *m_pStrategy;

public:
    AI_CParser(AI_CStrategy *pStrategy);
    virtual ~AI_CParser();

    // The file's command list (owned by the strategy), from the strategy's
    // store if the name was parsed before.
    AI_CCommandList *Parse(char const *pszFilename);

    static int IsExpandBlocks();
    static void EnableExpandBlocks(int bExpandBlocks);

protected:
    // Makes this file the one being read: the directory and extension that
    // names of loaded files take, and the front end's state at line 1.
    void BeginFile(char const *pszFilename);

    // Ownership bookkeeping.
    CObject *Remember(CObject *pObject);
    CString *Remember(CString *pString);
    CObject *Forget(CObject *pObject);
    CString *Forget(CString *pString);
    void DeleteObjects();
    void DeleteStrings();

    // Error entry points of the scanner and the grammar; they never return.
    int ScanError(char const *pszText);
    int ParseError(char const *pszMessage);

    // Semantic actions, named after the grammar's nonterminals.
    AI_CCommandList *command_list(AI_CCommand *pCommand);
    AI_CCommandList *command_list(AI_CCommandList *pCommands, AI_CCommand *pCommand);
    AI_CCommand *command(AI_CCommand *pCommand);
    AI_CCommand *load_command(CString *pFilename);
    AI_CCommand *load_random_command(AI_CLoadOptionList *pOptions, CString *pFilename);
    AI_CLoadOptionList *load_option_list();
    AI_CLoadOptionList *load_option_list(AI_CLoadOptionList *pOptions, AI_CLoadOption *pOption);
    AI_CLoadOption *load_option(int nProbability, CString *pFilename);
    CString *opt_file_name();
    CString *opt_file_name(CString *pFilename);
    AI_CCommand *defrule_command(AI_CCEList *pCEs, AI_CActionList *pActions);
    AI_CCEList *ce_list(AI_CCE *pCE);
    AI_CCEList *ce_list(AI_CCEList *pCEs, AI_CCE *pCE);
    AI_CActionList *action_list(AI_CAction *pAction);
    AI_CActionList *action_list(AI_CActionList *pActions, AI_CAction *pAction);
    AI_CCommand *defconst_command(char const *pszName, int nValue);
    int const_value(int nValue);
    int const_value(unsigned int nSID);
    AI_CCommand *block(int bIf, unsigned int nSID, AI_CCommandList *pIfCommands, AI_CCommandList *pElseCommands);
    int if_dir(int nToken);
    AI_CCommandList *opt_else();
    AI_CCommandList *opt_else(AI_CCommandList *pCommands);
    AI_CCE *conditional_element(AI_CCE *pCE);
    AI_CCE *test_CE(unsigned int nSID, AI_CExprList *pExpressions);
    AI_CCE *not_CE(AI_CCE *pCE);
    AI_CCE *and_CE(AI_CCE *pCE1, AI_CCE *pCE2);
    AI_CCE *xor_CE(AI_CCE *pCE1, AI_CCE *pCE2);
    AI_CCE *or_CE(AI_CCE *pCE1, AI_CCE *pCE2);
    AI_CCE *nor_CE(AI_CCE *pCE1, AI_CCE *pCE2);
    AI_CCE *xnor_CE(AI_CCE *pCE1, AI_CCE *pCE2);
    AI_CCE *nand_CE(AI_CCE *pCE1, AI_CCE *pCE2);
    AI_CAction *action(unsigned int nSID, AI_CExprList *pExpressions);
    AI_CExprList *expr_list();
    AI_CExprList *expr_list(AI_CExprList *pExpressions, AI_CExpression *pExpression);
    unsigned int fact_function_name(unsigned int nSID);
    unsigned int action_function_name(unsigned int nSID);
    AI_CExpression *expression(unsigned int nSID);
    AI_CExpression *expression(CString *pString);
    AI_CExpression *expression(int nValue);
    CString *file_name(CString *pFilename);
    unsigned int symbol(char const *pszText);
    CString *string(char const *pszText);
    unsigned int rel_op(int nToken);

    // Integer literals: converts the text into nValue; answers the code of
    // TOK_INTEGER or throws when the text is out of range.
    int tok_integer(char const *pszText, int &nValue);

private:
    void CheckParams(AI_CFunction const *pFunction, AI_CExprList *pExpressions);

    // Forgets the children a new object now owns and remembers the object.
    template <class T, class... Owned>
    T *Keep(T *pObject, Owned *...pOwned);
    // Adds an element to a list, making the list for the first element; the
    // list owns the element from then on.
    template <class List, class Element>
    List *Append(List *pList, Element *pElement);
    // Appends a command to a list, or in place of a block the commands of
    // the branch that the strategy's settings select.
    void AddCommand(AI_CCommandList *pCommands, AI_CCommand *pCommand);
    // A constant's first value in the strategy, else in the registry.
    int ConstantValue(unsigned int nSID) const;

    static int s_bExpandBlocks;
};

#endif
