/* The grammar of the script language: an LALR(1) grammar without conflicts.
 * Every completed production calls one action of the current parser, named
 * after the production's nonterminal; the parser builds and checks the
 * objects. Syntax errors and stack exhaustion go to the parser's ParseError,
 * which throws, so a parse ends at its first error.
 */
%require "3.6"
%define api.prefix {ai_yy}
%define parse.error custom
%define api.location.type {AI_Span}
%locations
%expect 0

%code requires {
#include "AI_Span.h"
class CString;
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
}

%code {
#include "AI_CParser.h"
#include "AI_FrontEnd.h"
#include "AI_GrammarSupport.h"

/* The stacks start with room for 200 entries and double up to 10,000. */
#define YYINITDEPTH 200
#define YYMAXDEPTH AI_PARSER_STACK_MAX
#define yyoverflow(Message, States, StatesSize, Values, ValuesSize, Locations, LocationsSize, StackSize) \
    AI_GrowParserStacks((States), (Values), (Locations), (StackSize))

/* A production spans its first to its last token; an empty one lies at
 * the end of what precedes it. The objects its action builds lie there. */
#define YYLLOC_DEFAULT(Current, Rhs, N)                                      \
    do {                                                                     \
        if (N) {                                                             \
            (Current).nBegin = YYRHSLOC(Rhs, 1).nBegin;                      \
            (Current).nEnd = YYRHSLOC(Rhs, N).nEnd;                          \
        } else {                                                             \
            (Current).nBegin = (Current).nEnd = YYRHSLOC(Rhs, 0).nEnd;       \
        }                                                                    \
        AI_spanProduction = (Current);                                       \
    } while (0)

/* A check may feed the grammar instead of the scanner. */
#undef yylex
#define yylex AI_GrammarLex

/* Where the error an action may raise points. */
#define AT(span) (AI_spanError = (span))
/* Tells a listening check what was read. */
#define NOTE(call)                                                           \
    do {                                                                     \
        if (AI_pObserver)                                                    \
            AI_pObserver->call;                                              \
    } while (0)
}

%union {
    char const *pszText;
    int nInteger;
    unsigned int nSID;
    CString *pString;
    AI_CCommandList *pCommands;
    AI_CCommand *pCommand;
    AI_CLoadOptionList *pOptions;
    AI_CLoadOption *pOption;
    AI_CCEList *pCEs;
    AI_CCE *pCE;
    AI_CActionList *pActions;
    AI_CAction *pAction;
    AI_CExprList *pExpressions;
    AI_CExpression *pExpression;
}

/* The token codes are shared with the scanner and the parser object. */
%token TOK_RW_DEFRULE 258
%token TOK_RW_DEFCONST 259
%token TOK_RW_LOAD 260
%token TOK_RW_LOAD_RANDOM 261
%token TOK_RW_NOT 262
%token TOK_RW_AND 263
%token TOK_RW_XOR 264
%token TOK_RW_OR 265
%token TOK_RW_NOR 266
%token TOK_RW_XNOR 267
%token TOK_RW_NAND 268
%token TOK_RW_LESS_THAN 269
%token TOK_RW_LESS_OR_EQUAL 270
%token TOK_RW_GREATER_THAN 271
%token TOK_RW_GREATER_OR_EQUAL 272
%token TOK_RW_EQUAL 273
%token TOK_RW_NOT_EQUAL 274
%token TOK_D_LOAD_IF_DEFINED 275
%token TOK_D_LOAD_IF_NOT_DEFINED 276
%token TOK_D_ELSE 277
%token TOK_D_END_IF 278
%token TOK_ARROW 279
%token <pszText> TOK_SYMBOL 280
%token <pszText> TOK_STRING 281
%token <nInteger> TOK_INTEGER 282

%type <pCommands> command_list opt_else
%type <pCommand> command load_command load_random_command defrule_command defconst_command block
%type <pOptions> load_option_list
%type <pOption> load_option
%type <pString> opt_file_name file_name string
%type <pCEs> ce_list
%type <pActions> action_list
%type <pCE> conditional_element test_CE not_CE and_CE xor_CE or_CE nor_CE xnor_CE nand_CE
%type <pAction> action
%type <pExpressions> expr_list
%type <pExpression> expression
%type <nInteger> const_value if_dir
%type <nSID> symbol fact_function_name action_function_name rel_op

%start command_list

%%

command_list
    : command                   { $$ = AI_pParser->command_list($1); NOTE(CommandList($$, @$)); }
    | command_list command      { $$ = AI_pParser->command_list($1, $2); NOTE(CommandList($$, @$)); }
    ;

command
    : load_command              { $$ = AI_pParser->command($1); }
    | load_random_command       { $$ = AI_pParser->command($1); }
    | defrule_command           { $$ = AI_pParser->command($1); }
    | defconst_command          { $$ = AI_pParser->command($1); }
    | block                     { $$ = AI_pParser->command($1); }
    ;

load_command
    : '(' TOK_RW_LOAD file_name ')'
                                { $$ = AI_pParser->load_command($3); NOTE(Command($$, @$, @3)); }
    ;

load_random_command
    : '(' TOK_RW_LOAD_RANDOM load_option_list opt_file_name ')'
                                {
                                  AT(@2);
                                  $$ = AI_pParser->load_random_command($3, $4);
                                  NOTE(Command($$, @$, @2));
                                }
    ;

load_option_list
    : %empty                    { $$ = AI_pParser->load_option_list(); }
    | load_option_list load_option
                                { $$ = AI_pParser->load_option_list($1, $2); }
    ;

load_option
    : TOK_INTEGER file_name     { AT(@1); NOTE(LoadOption($1, @1)); $$ = AI_pParser->load_option($1, $2); }
    ;

opt_file_name
    : %empty                    { $$ = AI_pParser->opt_file_name(); }
    | file_name                 { $$ = AI_pParser->opt_file_name($1); }
    ;

defrule_command
    : '(' TOK_RW_DEFRULE ce_list TOK_ARROW action_list ')'
                                { $$ = AI_pParser->defrule_command($3, $5); NOTE(Command($$, @$, @2)); }
    ;

ce_list
    : conditional_element       { $$ = AI_pParser->ce_list($1); }
    | ce_list conditional_element
                                { $$ = AI_pParser->ce_list($1, $2); }
    ;

action_list
    : action                    { $$ = AI_pParser->action_list($1); }
    | action_list action        { $$ = AI_pParser->action_list($1, $2); }
    ;

defconst_command
    : '(' TOK_RW_DEFCONST TOK_SYMBOL const_value ')'
                                {
                                  AT(@3);
                                  NOTE(ConstantName($3, @3));
                                  $$ = AI_pParser->defconst_command($3, $4);
                                  NOTE(Command($$, @$, @3));
                                }
    ;

const_value
    : TOK_INTEGER               { $$ = AI_pParser->const_value($1); }
    | symbol                    { AT(@1); NOTE(ValueSymbol($1, @1)); $$ = AI_pParser->const_value($1); }
    ;

block
    : '#' if_dir symbol command_list '#' opt_else TOK_D_END_IF
                                {
                                  AT(@3);
                                  $$ = AI_pParser->block($2, $3, $4, $6);
                                  NOTE(Command($$, @$, @3));
                                }
    ;

if_dir
    : TOK_D_LOAD_IF_DEFINED     { $$ = AI_pParser->if_dir(TOK_D_LOAD_IF_DEFINED); }
    | TOK_D_LOAD_IF_NOT_DEFINED { $$ = AI_pParser->if_dir(TOK_D_LOAD_IF_NOT_DEFINED); }
    ;

opt_else
    : %empty                    { $$ = AI_pParser->opt_else(); }
    | TOK_D_ELSE command_list '#'
                                { $$ = AI_pParser->opt_else($2); }
    ;

conditional_element
    : test_CE                   { $$ = AI_pParser->conditional_element($1); }
    | not_CE                    { $$ = AI_pParser->conditional_element($1); }
    | and_CE                    { $$ = AI_pParser->conditional_element($1); }
    | xor_CE                    { $$ = AI_pParser->conditional_element($1); }
    | or_CE                     { $$ = AI_pParser->conditional_element($1); }
    | nor_CE                    { $$ = AI_pParser->conditional_element($1); }
    | xnor_CE                   { $$ = AI_pParser->conditional_element($1); }
    | nand_CE                   { $$ = AI_pParser->conditional_element($1); }
    ;

test_CE
    : '(' fact_function_name expr_list ')'
                                { AT(@2); $$ = AI_pParser->test_CE($2, $3); }
    ;

not_CE
    : '(' TOK_RW_NOT conditional_element ')'
                                { $$ = AI_pParser->not_CE($3); }
    ;

and_CE
    : '(' TOK_RW_AND conditional_element conditional_element ')'
                                { $$ = AI_pParser->and_CE($3, $4); }
    ;

xor_CE
    : '(' TOK_RW_XOR conditional_element conditional_element ')'
                                { $$ = AI_pParser->xor_CE($3, $4); }
    ;

or_CE
    : '(' TOK_RW_OR conditional_element conditional_element ')'
                                { $$ = AI_pParser->or_CE($3, $4); }
    ;

nor_CE
    : '(' TOK_RW_NOR conditional_element conditional_element ')'
                                { $$ = AI_pParser->nor_CE($3, $4); }
    ;

xnor_CE
    : '(' TOK_RW_XNOR conditional_element conditional_element ')'
                                { $$ = AI_pParser->xnor_CE($3, $4); }
    ;

nand_CE
    : '(' TOK_RW_NAND conditional_element conditional_element ')'
                                { $$ = AI_pParser->nand_CE($3, $4); }
    ;

action
    : '(' action_function_name expr_list ')'
                                { AT(@2); $$ = AI_pParser->action($2, $3); }
    ;

expr_list
    : %empty                    { NOTE(ArgumentsBegin()); $$ = AI_pParser->expr_list(); }
    | expr_list expression      { NOTE(Argument(@2)); $$ = AI_pParser->expr_list($1, $2); }
    ;

fact_function_name
    : symbol                    { AT(@1); $$ = AI_pParser->fact_function_name($1); }
    ;

action_function_name
    : symbol                    { AT(@1); $$ = AI_pParser->action_function_name($1); }
    ;

expression
    : symbol                    { AT(@1); NOTE(ValueSymbol($1, @1)); $$ = AI_pParser->expression($1); }
    | string                    { $$ = AI_pParser->expression($1); }
    | rel_op                    { $$ = AI_pParser->expression($1); }
    | TOK_INTEGER               { $$ = AI_pParser->expression($1); }
    ;

file_name
    : string                    { $$ = AI_pParser->file_name($1); NOTE(FileName($$, @$)); }
    ;

symbol
    : TOK_SYMBOL                { AT(@1); $$ = AI_pParser->symbol($1); }
    ;

string
    : TOK_STRING                { $$ = AI_pParser->string($1); }
    ;

rel_op
    : TOK_RW_LESS_THAN          { $$ = AI_pParser->rel_op(TOK_RW_LESS_THAN); }
    | TOK_RW_LESS_OR_EQUAL      { $$ = AI_pParser->rel_op(TOK_RW_LESS_OR_EQUAL); }
    | TOK_RW_GREATER_THAN       { $$ = AI_pParser->rel_op(TOK_RW_GREATER_THAN); }
    | TOK_RW_GREATER_OR_EQUAL   { $$ = AI_pParser->rel_op(TOK_RW_GREATER_OR_EQUAL); }
    | TOK_RW_EQUAL              { $$ = AI_pParser->rel_op(TOK_RW_EQUAL); }
    | TOK_RW_NOT_EQUAL          { $$ = AI_pParser->rel_op(TOK_RW_NOT_EQUAL); }
    ;

%%

/* Syntax errors are worded as this system has always worded them: the
 * tokens named, and their order, do not depend on the Bison version that
 * generated the tables. */
static int yyreport_syntax_error(yypcontext_t const *pContext)
{
    yysymbol_kind_t aExpected[YYNTOKENS];
    int nExpected = yypcontext_expected_tokens(pContext, aExpected, YYNTOKENS);
    bool abAcceptable[YYNTOKENS] = {};
    for (int i = 0; i < nExpected; ++i)
        if (aExpected[i] >= 0 && aExpected[i] < YYNTOKENS)
            abAcceptable[aExpected[i]] = true;

    AI_TokenSet acceptable;
    for (int i = 0; i < AI_NAMED_TOKEN_COUNT; ++i)
        acceptable.abHas[i] = abAcceptable[YYTRANSLATE(AI_TokenCode(i))];
    ai_yyerror(AI_SyntaxErrorMessage(acceptable));
    return 0;
}

void ai_yyerror(char const *pszMessage)
{
    AI_pParser->ParseError(pszMessage);
}
