// What the semantic actions check and build: every error cause with its
// parameter and line, constants, arguments, operators and blocks.
#include "ParserTestSupport.h"

namespace {

using ActionsTest = FrontEndTest;

// Names are checked as soon as they are read; argument lists when the call
// is closed; blocks at their end-if (the inner one first); random loads at
// their parenthesis.
std::pair<char const *, char const *> const kCauses[] = {
    {"(defrule (do-nothing\n) => (do-nothing))", "main.txt(1): Fact function name expected, found: 'do-nothing'."},
    {"(defrule (true) =>\n(true))", "main.txt(2): Action function name expected, found: 'true'."},
    {"(defrule (true) => (archer))", "main.txt(1): Action function name expected, found: 'archer'."},
    {"(defrule (food-amount\ntrue 5) => (do-nothing))", "main.txt(2): Expression expected, found: 'true'."},
    {"(defrule (true) => (chat-to-all SMALL-MAP))", "main.txt(1): Expression expected, found: 'SMALL-MAP'."},
    {"#load-if-defined true\n(load \"a\")\n#\nend-if", "main.txt(4): Define expected, found: 'true'."},
    {"(defrule (true) => (chat-to-all\n\nnowhere))", "main.txt(3): Unknown symbol: 'nowhere'."},
    {"#load-if-defined true #load-if-defined false (load \"a\") #end-if #end-if",
     "main.txt(1): Define expected, found: 'false'."},
    {"#load-if-defined UNKNOWN-DEFINE (load \"a\") #end-if", "main.txt(1): Unknown symbol: 'UNKNOWN-DEFINE'."},
    {"(defrule (true 5\n) => (do-nothing))", "main.txt(2): Wrong number of parameters for 'true'."},
    {"(defrule (true) => (chat-to-all \"a\" \"b\"\n))", "main.txt(2): Wrong number of parameters for 'chat-to-all'."},
    {"(defrule (food-amount \"x y\" 5) => (do-nothing))", "main.txt(1): Wrong parameter: 'x y'."},
    {"(defrule (food-amount < less-than) => (do-nothing))", "main.txt(1): Wrong parameter: 'less-than'."},
    {"(defrule (food-amount archer 40000) => (do-nothing))", "main.txt(1): Wrong parameter: 'archer'."},
    {"(defrule (food-amount < 32768) => (do-nothing))", "main.txt(1): Wrong parameter: '32768'."},
    {"(defconst big 40000)\n(defrule (food-amount < big) => (do-nothing))", "main.txt(2): Wrong parameter: '40000'."},
    // Params registered inside the fact and action ranges have no signature.
    {"(defrule (fact-range-word) => (do-nothing))",
     "main.txt(1): Fact function name expected, found: 'fact-range-word'."},
    {"(defrule (true) => (action-range-word))",
     "main.txt(1): Action function name expected, found: 'action-range-word'."},
    {"(load-random 0 \"a\")", "main.txt(1): Invalid probability: 0."},
    {"(load-random 20 \"a\" 101 \"b\")", "main.txt(1): Invalid probability: 101."},
    {"(load-random -5 \"a\")", "main.txt(1): Invalid probability: -5."},
    {"(load-random 50 \"a\" 50 \"b\"\n)", "main.txt(2): Invalid probability sum: 100."},
    {"(load-random 60 \"a\" 70 \"b\" \"c\")", "main.txt(1): Invalid probability sum: 130."},
    {"(load-random 1 \"a\") (load-random 99 \"a\" \"b\") (load-random 49 \"a\" 50 \"b\")", "accepted"},
    {"(load-random) (load-random \"d\")", "accepted"},
    {"(defconst true 5)", "main.txt(1): Duplicate symbol: 'true'."},
    {"(defconst do-nothing 5)", "main.txt(1): Duplicate symbol: 'do-nothing'."},
    {"(defconst SMALL-MAP 5)", "main.txt(1): Duplicate symbol: 'SMALL-MAP'."},
    {"(defconst archer 5)", "main.txt(1): Duplicate symbol: 'archer'."},
    {"(defconst c true)", "main.txt(1): Non-const symbol in constant definition: 'true'."},
    {"(defconst c\narcher)", "main.txt(2): Non-const symbol in constant definition: 'archer'."},
};

}  // namespace

TEST_F(ActionsTest, EveryCauseWithItsParameterAndLine)
{
    AI_AddParam(497, "fact-range-word");
    AI_AddParam(690, "action-range-word");
    for (auto const &[pszScript, pszMessage] : kCauses)
        EXPECT_EQ(ErrorOf(pszScript), pszMessage) << pszScript;
    // Without the built-in params a relational operator names nothing.
    RegisterVocabulary(false);
    EXPECT_EQ(ErrorOf("(defrule (three-ops <) => (do-nothing))"), "main.txt(1): Expression expected, found: ''.");
}

TEST_F(ActionsTest, ConstantDefinitionsAndTheirValues)
{
    unsigned int nLimit = AI_AddConstant("limit", 10);
    m_pStrategy->AddConstantValue(nLimit, 25);
    AI_CCommandList *pCommands = ParseText("(defconst a 5)\n(defconst a 7)\n(defconst b a)\n(defconst c limit)");
    std::vector<int> values;
    for (AI_CCommand const *pCommand : CommandsOf(pCommands))
        values.push_back(static_cast<AI_CDefconstCommand const *>(pCommand)->GetValue());
    // A constant of this file has its value in the registry only; the
    // strategy's value of a constant comes first.
    EXPECT_EQ(values, (std::vector<int> {5, 7, 5, 25}));
    unsigned int nA = AI_Symbol("a");
    EXPECT_EQ(AI_Constant(nA, 0), 5);
    EXPECT_EQ(AI_Constant(nA, 1), AI_NO_VALUE);
    EXPECT_EQ(m_pStrategy->Constant(nA, 0), AI_NO_VALUE);

    // A constant registered before a failure stays registered.
    EXPECT_EQ(ErrorOf("(defconst survivor 12)\n(defrule (true) => (nothing))"),
              "main.txt(2): Unknown symbol: 'nothing'.");
    EXPECT_EQ(AI_Constant(AI_Symbol("survivor"), 0), 12);
}

TEST_F(ActionsTest, ConditionsArgumentsAndActionsAreBuilt)
{
    char const *const kWords[] = {"not", "and", "or", "xor", "nand", "nor", "xnor"};  // in the order of AI_COpCE::Op
    for (int i = 1; i < 7; ++i) {
        SCOPED_TRACE(kWords[i]);
        AI_CCommandList *pCommands = ParseText(std::string("(defconst five 5)\n(defrule (") + kWords[i]
                                               + " (food-amount greater-or-equal five) (not (false)))"
                                                 " => (chat-to-all \"hi\") (do-nothing))");
        auto const *pOp = dynamic_cast<AI_COpCE const *>(FirstCondition(pCommands, 1));
        ASSERT_NE(pOp, nullptr);
        EXPECT_EQ(pOp->GetOp(), static_cast<AI_COpCE::Op>(i));
        auto const *pNot = static_cast<AI_COpCE const *>(pOp->GetCE2());
        EXPECT_EQ(pNot->GetOp(), AI_COpCE::opNot);
        EXPECT_EQ(pNot->GetCE2(), nullptr);
        std::vector<AI_CExpression const *> arguments = Arguments(pOp->GetCE1());
        ASSERT_EQ(arguments.size(), 2u);
        EXPECT_EQ(arguments[0]->GetType(), AI_EXPR_SYMBOL);
        EXPECT_EQ(arguments[0]->GetContents().nSID, 2303u);
        // A constant argument is the integer it stands for.
        EXPECT_EQ(arguments[1]->GetType(), AI_EXPR_INTEGER);
        EXPECT_EQ(arguments[1]->GetContents().nInteger, 5);
        auto const &actions
            = static_cast<AI_CDefruleCommand const *>(CommandsOf(pCommands)[1])->GetActions()->GetActions();
        AI_CExpression const *pText = actions.GetHead()->GetExpressions()->GetExpressions().GetHead();
        ASSERT_EQ(pText->GetType(), AI_EXPR_STRING);
        EXPECT_STREQ(*pText->GetContents().pString, "hi");
        // A call without arguments has no argument list.
        EXPECT_EQ(actions.GetTail()->GetExpressions(), nullptr);
    }
}

TEST_F(ActionsTest, BlocksAreReplacedByTheSelectedBranch)
{
    AI_GameSettings settings = AI_gsSettings;
    settings.bDeathMatch = 1;
    settings.nMapSize = 3;  // not a small map
    m_pStrategy.reset(new AI_CStrategy("blocks", "main.txt", settings));
    // The plain cases of each directive are host cases (blocks-1, blocks-2).
    std::pair<char const *, Names> const kResolutions[] = {
        {"#load-if-not-defined DEATH-MATCH (load \"then\") #else (load \"else\") #end-if", {"else"}},
        {"#load-if-not-defined SMALL-MAP (load \"t1\") (load \"t2\") #else (load \"else\") #end-if", {"t1", "t2"}},
        {"(load \"x\") #load-if-defined DEATH-MATCH (load \"t1\") (load \"t2\") #end-if (load \"y\")",
         {"x", "t1", "t2", "y"}},
        // Nested blocks are resolved from the inside.
        {"(load \"first\")\n"
         "#load-if-defined DEATH-MATCH (load \"a\")\n"
         "  #load-if-defined REGICIDE (load \"b\") #else\n"
         "    #load-if-not-defined REGICIDE (load \"c\") (load \"d\") #end-if (load \"e\")\n"
         "  #end-if (load \"f\")\n"
         "#else (load \"g\") #end-if (load \"last\")",
         {"first", "a", "c", "d", "e", "f", "last"}},
    };
    for (auto const &[pszScript, loads] : kResolutions)
        EXPECT_EQ(LoadsOf(pszScript, "main"), loads) << pszScript;
}
