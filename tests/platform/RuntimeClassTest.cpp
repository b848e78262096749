// Run-time class records: names, sizes, factories, base chains and kind tests.
#include <gtest/gtest.h>

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

class Other : public CObject
{
    DECLARE_DYNCREATE(Other)
protected:
    Other() = default;  // the factory may use a protected constructor
};
IMPLEMENT_DYNCREATE(Other, CObject)

TEST(RuntimeClass, RecordFields)
{
    CRuntimeClass const *node = RUNTIME_CLASS(Node);
    EXPECT_STREQ("Node", node->m_lpszClassName);
    EXPECT_EQ(static_cast<int>(sizeof(Node)), node->m_nObjectSize);
    EXPECT_EQ(0xFFFFu, node->m_wSchema);
    EXPECT_NE(nullptr, node->m_pfnCreateObject);
    EXPECT_EQ(RUNTIME_CLASS(CObject), node->m_pBaseClass);

    CRuntimeClass const *leaf = RUNTIME_CLASS(Leaf);
    EXPECT_STREQ("Leaf", leaf->m_lpszClassName);
    EXPECT_EQ(static_cast<int>(sizeof(Leaf)), leaf->m_nObjectSize);
    EXPECT_EQ(nullptr, leaf->m_pfnCreateObject);
    EXPECT_EQ(RUNTIME_CLASS(Node), leaf->m_pBaseClass);

    EXPECT_STREQ("CObject", RUNTIME_CLASS(CObject)->m_lpszClassName);
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CObject)->m_pBaseClass);
}

TEST(RuntimeClass, FactoryCreatesDefaultConstructedObjects)
{
    CObject *made = RUNTIME_CLASS(Node)->CreateObject();
    ASSERT_NE(nullptr, made);
    EXPECT_EQ(RUNTIME_CLASS(Node), made->GetRuntimeClass());
    EXPECT_EQ(7, static_cast<Node *>(made)->m_nTag);
    delete made;

    CObject *other = RUNTIME_CLASS(Other)->CreateObject();
    ASSERT_NE(nullptr, other);
    EXPECT_EQ(RUNTIME_CLASS(Other), other->GetRuntimeClass());
    delete other;

    EXPECT_EQ(nullptr, RUNTIME_CLASS(Leaf)->CreateObject());
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CObject)->CreateObject());
}

TEST(RuntimeClass, DynamicClassThroughBasePointer)
{
    Leaf leaf;
    CObject *object = &leaf;
    EXPECT_EQ(RUNTIME_CLASS(Leaf), object->GetRuntimeClass());
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(Leaf)));
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(Node)));
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(object->IsKindOf(RUNTIME_CLASS(Other)));

    Node node;
    EXPECT_FALSE(node.IsKindOf(RUNTIME_CLASS(Leaf)));
    EXPECT_TRUE(RUNTIME_CLASS(Leaf)->IsDerivedFrom(RUNTIME_CLASS(Node)));
    EXPECT_TRUE(RUNTIME_CLASS(Leaf)->IsDerivedFrom(RUNTIME_CLASS(Leaf)));
    EXPECT_FALSE(RUNTIME_CLASS(Node)->IsDerivedFrom(RUNTIME_CLASS(Leaf)));
    EXPECT_FALSE(RUNTIME_CLASS(Node)->IsDerivedFrom(nullptr));
}

}  // namespace
