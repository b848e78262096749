// Pointer lists: order, positions, searching, removal and appending whole
// lists. The elements live on the stack: a list that deleted what it points
// to would crash here.
#include <gtest/gtest.h>

#include <vector>

#include "platform/afx.h"

namespace {

class Item : public CObject
{
public:
    explicit Item(int nId) : m_nId(nId) {}
    int m_nId;
};

typedef CTypedPtrList<CObList, Item *> ItemList;

std::vector<int> Ids(ItemList const &list)
{
    std::vector<int> ids;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        ids.push_back(list.GetNext(pos)->m_nId);
    return ids;
}

TEST(TypedPtrList, KeepsOrderThroughFindRemovalAndAppending)
{
    Item a(1), b(2), c(3);
    ItemList list, other;
    EXPECT_EQ(nullptr, list.GetHeadPosition());
    POSITION pa = list.AddTail(&a);
    POSITION firstB = list.AddTail(&b);
    list.AddTail(&c);
    POSITION secondB = list.AddTail(&b);
    EXPECT_EQ(firstB, list.Find(&b));
    EXPECT_EQ(secondB, list.Find(&b, firstB));  // searches after the position
    EXPECT_EQ(nullptr, list.Find(&b, secondB));
    EXPECT_EQ(nullptr, list.Find(&a, firstB));

    list.RemoveAt(firstB);
    list.RemoveAt(pa);       // the head
    list.RemoveAt(secondB);  // the tail
    list.AddTail(&a);
    EXPECT_EQ(&c, list.GetHead());
    EXPECT_EQ((std::vector<int>{3, 1}), Ids(list));

    other.AddTail(&b);
    list.AddTail(&other);
    EXPECT_EQ((std::vector<int>{3, 1, 2}), Ids(list));
    EXPECT_EQ((std::vector<int>{2}), Ids(other));
    list.AddTail(&list);  // appending a list to itself doubles it
    EXPECT_EQ((std::vector<int>{3, 1, 2, 3, 1, 2}), Ids(list));

    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(nullptr, list.GetHeadPosition());
    list.AddTail(&b);
    EXPECT_EQ((std::vector<int>{2}), Ids(list));
}  // both lists go while still holding pointers to the stack

}  // namespace
