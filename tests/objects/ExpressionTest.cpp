// Arguments of fact tests and actions: the three kinds of expression and
// the argument list.
#include <memory>

#include "TestSupport.h"

using Expression = VocabularyTest;

namespace {

// Gives access to the factory-made expression.
std::unique_ptr<AI_CExpression> MadeByFactory()
{
    return std::unique_ptr<AI_CExpression>(
        static_cast<AI_CExpression *>(RUNTIME_CLASS(AI_CExpression)->CreateObject()));
}

}  // namespace

TEST_F(Expression, EachKindDescribesAndListsItsContents)
{
    AI_CExpression symbol{unsigned(kVillager)};
    AI_CExpression text(Str("hi there"));
    AI_CExpression number(-17);

    EXPECT_EQ(AI_EXPR_SYMBOL, symbol.GetType());
    EXPECT_EQ(unsigned(kVillager), symbol.GetContents().nSID);
    EXPECT_EQ("symbol: villager", Describe(symbol));
    EXPECT_EQ("villager", Listing(symbol, 3));  // the level is not used

    EXPECT_EQ(AI_EXPR_STRING, text.GetType());
    EXPECT_EQ("string: hi there", Describe(text));
    EXPECT_EQ("\"hi there\"", Listing(text, 2));

    EXPECT_EQ(AI_EXPR_INTEGER, number.GetType());
    EXPECT_EQ(-17, number.GetContents().nInteger);
    EXPECT_EQ("integer: -17", Describe(number));
    EXPECT_EQ("-17", Listing(number, 1));

    EXPECT_TRUE(Children(symbol).empty());
    EXPECT_TRUE(Children(text).empty());
}

TEST_F(Expression, StringsAreWrittenRawWithoutEscapes)
{
    AI_CExpression text(Str("a\nb\\c"));
    EXPECT_EQ("\"a\nb\\c\"", Listing(text));
    AI_CExpression empty(Str(""));
    EXPECT_EQ("\"\"", Listing(empty));
    EXPECT_EQ("string: ", Describe(empty));
}

TEST_F(Expression, FactoryMakesTheValidIntegerZero)
{
    std::unique_ptr<AI_CExpression> pExpression = MadeByFactory();
    EXPECT_EQ(AI_EXPR_INTEGER, pExpression->GetType());
    EXPECT_EQ(0, pExpression->GetContents().nInteger);
    EXPECT_EQ(1, pExpression->IsValid());
    EXPECT_EQ("integer: 0", Describe(*pExpression));
}

TEST_F(Expression, SymbolIsValidOnlyForARegisteredParameterWord)
{
    EXPECT_EQ(1, AI_CExpression(unsigned(kVillager)).IsValid());
    EXPECT_EQ(0, AI_CExpression(unsigned(kTrue)).IsValid());       // a fact
    EXPECT_EQ(0, AI_CExpression(unsigned(kDoNothing)).IsValid());  // an action
    EXPECT_EQ(0, AI_CExpression(unsigned(kSmallMap)).IsValid());   // a define
    EXPECT_EQ(0, AI_CExpression(0u).IsValid());
    EXPECT_EQ(0, AI_CExpression(3499u).IsValid());  // in range, never registered
    EXPECT_EQ(1, AI_CExpression::IsExpressionID(kLessThan));
    EXPECT_EQ(0, AI_CExpression::IsExpressionID(kTrue));
}

TEST_F(Expression, StringIsValidWhenPresentEvenIfEmpty)
{
    EXPECT_EQ(0, AI_CExpression(static_cast<CString *>(nullptr)).IsValid());
    EXPECT_EQ(1, AI_CExpression(Str("")).IsValid());
    EXPECT_EQ(1, AI_CExpression(0).IsValid());
    EXPECT_EQ(1, AI_CExpression(-2147483647 - 1).IsValid());
}

TEST_F(Expression, InvalidateClearsSymbolAndStringButKeepsTheType)
{
    AI_CExpression symbol{unsigned(kVillager)};
    symbol.Invalidate();
    EXPECT_EQ(AI_EXPR_SYMBOL, symbol.GetType());
    EXPECT_EQ(0u, symbol.GetContents().nSID);
    EXPECT_EQ(0, symbol.IsValid());

    AI_CExpression number(42);
    number.Invalidate();
    EXPECT_EQ(42, number.GetContents().nInteger);
    EXPECT_EQ(1, number.IsValid());

    // The string survives its former owner; the test frees it.
    CString *pText = Str("kept");
    {
        AI_CExpression text(pText);
        text.Invalidate();
        EXPECT_EQ(AI_EXPR_STRING, text.GetType());
        EXPECT_EQ(0, text.IsValid());
    }
    EXPECT_STREQ("kept", *pText);
    delete pText;
}

TEST_F(Expression, ArgumentListJoinsItsExpressionsWithSingleBlanks)
{
    std::unique_ptr<AI_CExprList> pArgs(Args({new AI_CExpression(unsigned(kLessThan)), new AI_CExpression(3),
                                              new AI_CExpression(Str("x y"))}));
    EXPECT_EQ("less-than 3 \"x y\"", Listing(*pArgs, 4));
    EXPECT_EQ("expression list: 3 expressions", Describe(*pArgs));
    std::vector<AI_CObject *> children = Children(*pArgs);
    ASSERT_EQ(3u, children.size());
    EXPECT_EQ("symbol: less-than", Describe(*children[0]));
    EXPECT_EQ("integer: 3", Describe(*children[1]));
    EXPECT_EQ("string: x y", Describe(*children[2]));

    std::unique_ptr<AI_CExprList> pOne(Args({new AI_CExpression(5)}));
    EXPECT_EQ("5", Listing(*pOne));
}
