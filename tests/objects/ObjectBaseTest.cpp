// What every object family answers: its description, validity and children.
#include <climits>

#include "TestSupport.h"

using ObjectBase = ObjectsTest;

namespace {

template <class T>
std::string Valid(T const &object)
{
    return std::to_string(object.IsValid());
}

// The description and, for the families that have one, the validity.
template <class T>
std::string Facts(T const &object)
{
    return Describe(object) + " | " + Valid(object);
}

}  // namespace

TEST_F(ObjectBase, BareObjectOffsetsByLevelAndHasNothingToListOrEnumerate)
{
    AI_CObject object;
    std::ostringstream os;
    for (int nLevel : {-5, 0, 3})
        object.Offset(os, nLevel);
    EXPECT_EQ("\t\t\t", os.str());
    EXPECT_EQ("", Listing(object, 2));
    EXPECT_TRUE(Children(object).empty());
}

TEST_F(ObjectBase, EveryFamilyDescribesItselfAndKnowsWhenItIsValid)
{
    unsigned int nConst = AI_AddConstant("my-const", 1);
    auto op = [](int nOp, bool bFirst, bool bSecond) {
        auto fact = [] { return new AI_CTestCE(kTrue, nullptr); };
        return Valid(AI_COpCE(static_cast<AI_COpCE::Op>(nOp), bFirst ? fact() : nullptr, bSecond ? fact() : nullptr));
    };
    AI_CLoadOptionList *pOptions = Options({{30, "a"}, {50, "b"}});
    HandLoadRandom chosen(pOptions, Str("d"));
    chosen.SetLoaded(OptionName(pOptions, 1), nullptr);
    std::vector<std::pair<std::string, std::string>> rows = {
        {Describe(AI_CObject()), "object"},
        {Facts(*Made<AI_CCommand>(RUNTIME_CLASS(AI_CCommand))), "object | 1"},
        // Symbols must be registered parameter words; strings present.
        {Facts(AI_CExpression(unsigned(kVillager))), "symbol: villager | 1"},
        {Facts(AI_CExpression(unsigned(kTrue))), "symbol: true | 0"},
        {Facts(AI_CExpression(unsigned(kDoNothing))), "symbol: do-nothing | 0"},
        {Facts(AI_CExpression(unsigned(kSmallMap))), "symbol: SMALL-MAP | 0"},
        {Facts(AI_CExpression(3499u)), "symbol:  | 0"},  // in range, never registered
        {Facts(AI_CExpression(Str("hi there"))), "string: hi there | 1"},
        {Facts(AI_CExpression(Str(""))), "string:  | 1"},
        {Valid(AI_CExpression(static_cast<CString *>(nullptr))), "0"},
        {Facts(AI_CExpression(INT_MIN)), "integer: -2147483648 | 1"},
        {Facts(*Made<AI_CExpression>(RUNTIME_CLASS(AI_CExpression))), "integer: 0 | 1"},
        {Describe(AI_CExprList()), "expression list: 0 expressions"},
        // Fact tests and actions need their kind of word, with arguments or not.
        {Facts(AI_CTestCE(kTrue, nullptr)), "fact: true | 1"},
        {Facts(AI_CTestCE(kFoodAmount, Args({new AI_CExpression(1)}))), "fact: food-amount | 1"},
        {Facts(AI_CTestCE(kDoNothing, nullptr)), "fact: do-nothing | 0"},
        {Facts(AI_CTestCE(kVillager, nullptr)), "fact: villager | 0"},
        {Facts(AI_CTestCE(0, nullptr)), "fact:  | 0"},
        {Describe(AI_CCEList()), "fact list: 0 CEs"},
        {Facts(AI_CAction(kDoNothing, nullptr)), "action: do-nothing | 1"},
        {Facts(AI_CAction(kTrain, Args({new AI_CExpression(unsigned(kVillager))}))), "action: train | 1"},
        {Facts(AI_CAction(kTrue, nullptr)), "action: true | 0"},
        {Facts(AI_CAction(0, nullptr)), "action:  | 0"},
        // Operators: a known one, the first operand, the second for all but "not".
        {op(AI_COpCE::opNot, true, false) + op(AI_COpCE::opNot, true, true) + op(AI_COpCE::opNot, false, false), "100"},
        {op(AI_COpCE::opAnd, true, true) + op(AI_COpCE::opAnd, true, false) + op(AI_COpCE::opAnd, false, true), "100"},
        {op(AI_COpCE::opXnor, true, true) + op(7, true, true) + op(7, true, false) + op(-1, true, true), "1000"},
        // Rules need both lists, empty or not; constants a constant's SID.
        {Facts(AI_CDefruleCommand(new AI_CCEList, new AI_CActionList)), "defrule command | 1"},
        {Valid(AI_CDefruleCommand(new AI_CCEList, nullptr)) + Valid(AI_CDefruleCommand(nullptr, new AI_CActionList)),
         "00"},
        {Facts(AI_CDefconstCommand(nConst, -5, nullptr)), "defconst command: my-const = -5 | 1"},
        {Facts(AI_CDefconstCommand(kTrue, 1, nullptr)), "defconst command: true = 1 | 0"},
        {Describe(AI_CCommandList()), "command list: 0 commands"},
        // Loads need a name; options 1 to 100 and a name; random loads a
        // total of at most 100; blocks a define and a first list.
        {Facts(HandLoad(Str("dir/abc.per"))), "load command: dir/abc.per | 1"},
        {Valid(AI_CLoadCommand(nullptr, nullptr)), "0"},
        {Facts(AI_CLoadOption(30, Str("x.per"))), "load option: 30, x.per | 1"},
        {Valid(AI_CLoadOption(1, Str("f"))) + Valid(AI_CLoadOption(100, Str("f"))), "11"},
        {Valid(AI_CLoadOption(0, Str("f"))) + Valid(AI_CLoadOption(101, Str("f"))) + Valid(AI_CLoadOption(-1, Str("f")))
             + Valid(AI_CLoadOption(50, nullptr)),
         "0000"},
        {Describe(AI_CLoadOptionList()), "load options list: 0 load options"},
        {Describe(*pOptions) + ", total " + std::to_string(pOptions->GetTotalProbability()),
         "load options list: 2 load options, total 80"},
        {std::to_string(AI_CLoadOptionList().GetTotalProbability()), "0"},
        {Facts(AI_CLoadRandomCommand(nullptr, nullptr, nullptr)), "load random command: default ?, loaded ? | 1"},
        {Facts(*Made<AI_CLoadRandomCommand>(RUNTIME_CLASS(AI_CLoadRandomCommand))),
         "load random command: default ?, loaded ? | 1"},
        {Facts(AI_CLoadRandomCommand(nullptr, Str("d"), nullptr)), "load random command: default d, loaded ? | 1"},
        {Facts(chosen), "load random command: default d, loaded b | 1"},
        {Valid(AI_CLoadRandomCommand(Options({}), nullptr, nullptr))
             + Valid(AI_CLoadRandomCommand(Options({{60, "a"}, {40, "b"}}), nullptr, nullptr))
             + Valid(AI_CLoadRandomCommand(Options({{60, "a"}, {41, "b"}}), Str("d"), nullptr)),
         "110"},
        {Facts(AI_CBlock(1, kSmallMap, new AI_CCommandList, nullptr)), "block: load if defined SMALL-MAP | 1"},
        {Facts(AI_CBlock(0, kDeathMatch, new AI_CCommandList, new AI_CCommandList)),
         "block: load if not defined DEATH-MATCH | 1"},
        {Facts(AI_CBlock(1, kVillager, new AI_CCommandList, nullptr)), "block: load if defined villager | 0"},
        {Facts(AI_CBlock(0, kSmallMap, nullptr, new AI_CCommandList)), "block: load if not defined SMALL-MAP | 0"},
    };
    char const *const apszKeywords[] = {"not", "and", "or", "xor", "nand", "nor", "xnor"};
    for (int n = 0; n < 7; ++n)
        rows.push_back({Describe(AI_COpCE(static_cast<AI_COpCE::Op>(n), nullptr, nullptr)),
                        std::string("fact operation: ") + apszKeywords[n]});
    ExpectRows(rows);
}

// Parts that are absent are left out: a binary operation has both
// operands, a random load its options, then its loaded list; leaves have
// none. (The parts of every family in a parsed tree are pinned by the host's
// --tree case.)
TEST_F(ObjectBase, ChildrenAreTheDirectPartsInOrder)
{
    AI_CCE *pFirst = new AI_CTestCE(kTrue, nullptr);
    AI_CCE *pSecond = new AI_CTestCE(kFoodAmount, nullptr);
    AI_CCE *pOnly = new AI_CTestCE(kTrue, nullptr);
    AI_COpCE binary(AI_COpCE::opOr, pFirst, pSecond), unary(AI_COpCE::opNot, pOnly, nullptr);
    AI_CLoadOptionList *pOptions = Options({{30, "a"}});
    HandLoadRandom random(pOptions, nullptr);
    AI_CCommandList *pIf = new AI_CCommandList;
    using V = std::vector<AI_CObject *>;
    ExpectRows<V>({
        {Children(binary), V {pFirst, pSecond}},
        {Children(unary), V {pOnly}},
        {Children(random), V {pOptions}},
        {Children(AI_CBlock(0, kSmallMap, pIf, nullptr)), V {pIf}},
        {Children(AI_CExpression(1)), V {}},
        {Children(AI_CTestCE(kTrue, nullptr)), V {}},
        {Children(AI_CDefconstCommand(0, 1, nullptr)), V {}},
        {Children(AI_CAction(kDoNothing, nullptr)), V {}},
        {Children(HandLoad(Str("a"))), V {}},
        {Children(AI_CLoadOption(5, Str("a"))), V {}},
    });
    AI_CCommandList loaded;
    random.SetLoaded(OptionName(pOptions, 0), &loaded);
    EXPECT_EQ((V {pOptions, &loaded}), Children(random));
}
