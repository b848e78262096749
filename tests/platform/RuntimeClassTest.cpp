// Run-time class records: sizes, factories, base chains and kind tests.
#include <gtest/gtest.h>

#include <memory>

#include "platform/afx.h"

namespace {

class Node : public CObject
{
    DECLARE_DYNCREATE(Node)
public:
    int m_nTag = 7;
};
IMPLEMENT_DYNCREATE(Node, CObject)

class Leaf : public Node
{
    DECLARE_DYNAMIC(Leaf)
public:
    double m_extra = 0;
};
IMPLEMENT_DYNAMIC(Leaf, Node)

TEST(RuntimeClass, RecordsFactoriesAndKindTests)
{
    CRuntimeClass *node = RUNTIME_CLASS(Node), *leaf = RUNTIME_CLASS(Leaf);
    EXPECT_EQ(static_cast<int>(sizeof(Leaf)), leaf->m_nObjectSize);
    EXPECT_EQ(node, leaf->m_pBaseClass);
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CObject)->m_pBaseClass);
    EXPECT_EQ(nullptr, leaf->CreateObject());  // a dynamic class has no factory
    std::unique_ptr<CObject> made(node->CreateObject());
    ASSERT_NE(nullptr, made);
    EXPECT_EQ(7, static_cast<Node *>(made.get())->m_nTag);  // default-constructed

    Leaf object;
    CObject *base = &object;
    EXPECT_EQ(leaf, base->GetRuntimeClass());
    EXPECT_TRUE(base->IsKindOf(node));
    EXPECT_TRUE(base->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(base->IsKindOf(RUNTIME_CLASS(CException)));
    EXPECT_FALSE(Node().IsKindOf(leaf));
}

}  // namespace
