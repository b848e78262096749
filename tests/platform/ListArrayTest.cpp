// Pointer lists: order, positions, searching, removal and appending whole
// lists. The elements live on the stack: a list that deleted what it points
// to would crash here.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
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
    EXPECT_EQ((std::vector<int> {3, 1}), Ids(list));

    other.AddTail(&b);
    list.AddTail(&other);
    EXPECT_EQ((std::vector<int> {3, 1, 2}), Ids(list));
    EXPECT_EQ((std::vector<int> {2}), Ids(other));
    list.AddTail(&list);  // appending a list to itself doubles it
    EXPECT_EQ((std::vector<int> {3, 1, 2, 3, 1, 2}), Ids(list));

    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(nullptr, list.GetHeadPosition());
    list.AddTail(&b);
    EXPECT_EQ((std::vector<int> {2}), Ids(list));
}  // both lists go while still holding pointers to the stack

// Removing elements in any order, then adding some back (the freed nodes
// are reused): the walks both ways skip what was removed, a list appended to
// another brings only what it still holds, and a list emptied element by
// element takes new elements as a fresh one does.
TEST(TypedPtrList, RemovalInAnyOrderThenReuse)
{
    // Name, slots in the order they are removed, slots added back, ids left.
    std::tuple<char const *, std::vector<int>, std::vector<int>, std::vector<int>> const rows[] = {
        {"head first", {0, 1}, {}, {2, 3, 4}},
        {"tail first", {4, 3}, {}, {0, 1, 2}},
        {"middle, then around it", {2, 1, 3}, {}, {0, 4}},
        {"every one, middle out", {2, 1, 3, 0, 4}, {}, {}},
        {"every one, tail first", {4, 3, 2, 1, 0}, {}, {}},
        {"freed nodes reused", {0, 1, 3}, {1, 3, 0}, {2, 4, 1, 3, 0}},
    };
    for (auto const &[name, removed, readded, left] : rows) {
        SCOPED_TRACE(name);
        std::deque<Item> items;  // an object never moves
        for (int n = 0; n < 5; ++n)
            items.emplace_back(n);
        ItemList list, copy;
        std::vector<POSITION> positions;
        for (Item &item : items)
            positions.push_back(list.AddTail(&item));
        for (int n : removed)
            list.RemoveAt(positions[n]);
        for (int n : readded)
            positions[n] = list.AddTail(&items[n]);
        EXPECT_EQ(left, Ids(list));
        EXPECT_EQ(static_cast<INT_PTR>(left.size()), list.GetCount());
        copy.AddTail(&list);
        EXPECT_EQ(left, Ids(copy));
        for (Item &item : items) {
            bool const bLeft = std::count(left.begin(), left.end(), item.m_nId) != 0;
            POSITION found = list.Find(&item);
            EXPECT_EQ(bLeft ? positions[item.m_nId] : nullptr, found) << item.m_nId;
            if (found) {
                EXPECT_EQ(&item, list.GetNext(found));
            }
        }
        std::vector<int> backwards;
        for (POSITION pos = list.GetTailPosition(); pos;)
            backwards.push_back(list.GetPrev(pos)->m_nId);
        EXPECT_EQ(std::vector<int>(left.rbegin(), left.rend()), backwards);
        if (!left.empty()) {
            EXPECT_EQ(left.front(), list.GetHead()->m_nId);
            EXPECT_EQ(left.back(), list.GetTail()->m_nId);
            continue;
        }
        EXPECT_EQ(nullptr, list.GetHeadPosition());
        POSITION first = list.AddTail(&items[3]);
        EXPECT_EQ(first, list.GetHeadPosition());
        EXPECT_EQ(first, list.GetTailPosition());
        EXPECT_EQ((std::vector<int> {3}), Ids(list));
    }
}

}  // namespace
