// Pointer lists and arrays: order, positions, searching, removal, and that a
// list never deletes what it points to.
#include <gtest/gtest.h>

#include <vector>

#include "platform/afx.h"

namespace {

// Counts destructions, so a test sees whether a list deleted an element.
class Counted : public CObject
{
public:
    explicit Counted(int nId = 0) : m_nId(nId) {}
    ~Counted() override { ++s_nDestroyed; }
    int m_nId;
    static int s_nDestroyed;
};
int Counted::s_nDestroyed = 0;

typedef CTypedPtrList<CObList, Counted *> CountedList;

std::vector<int> Ids(CountedList const &list)
{
    std::vector<int> ids;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        ids.push_back(list.GetNext(pos)->m_nId);
    return ids;
}

TEST(TypedPtrList, AppendsAtTheTailAndWalksFromTheHead)
{
    Counted a(1), b(2), c(3);
    CountedList list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(0, list.GetCount());
    EXPECT_EQ(nullptr, list.GetHeadPosition());

    POSITION pa = list.AddTail(&a);
    list.AddTail(&b);
    POSITION pc = list.AddTail(&c);
    EXPECT_FALSE(list.IsEmpty());
    EXPECT_EQ(3, list.GetCount());
    EXPECT_EQ(&a, list.GetHead());
    EXPECT_EQ((std::vector<int>{1, 2, 3}), Ids(list));

    // A position returned by AddTail walks on from its element.
    POSITION pos = pa;
    EXPECT_EQ(&a, list.GetNext(pos));
    EXPECT_EQ(&b, list.GetNext(pos));
    pos = pc;
    EXPECT_EQ(&c, list.GetNext(pos));
    EXPECT_EQ(nullptr, pos);
}

TEST(TypedPtrList, NonConstAccessReturnsReferences)
{
    Counted a(1), b(2), z(26);
    CountedList list;
    list.AddTail(&a);
    list.AddTail(&b);
    list.GetHead() = &z;
    POSITION pos = list.GetHeadPosition();
    list.GetNext(pos);
    list.GetNext(pos) = &a;
    EXPECT_EQ((std::vector<int>{26, 1}), Ids(list));
}

TEST(TypedPtrList, AppendingAWholeListCopiesItsPointers)
{
    Counted a(1), b(2), c(3);
    CountedList first, second;
    first.AddTail(&a);
    second.AddTail(&b);
    second.AddTail(&c);
    first.AddTail(&second);
    EXPECT_EQ((std::vector<int>{1, 2, 3}), Ids(first));
    EXPECT_EQ((std::vector<int>{2, 3}), Ids(second));
    first.AddTail(&first);  // appending a list to itself doubles it
    EXPECT_EQ((std::vector<int>{1, 2, 3, 1, 2, 3}), Ids(first));
}

TEST(TypedPtrList, FindSearchesAfterAPosition)
{
    Counted a(1), b(2), c(3);
    CountedList list;
    list.AddTail(&a);
    POSITION firstB = list.AddTail(&b);
    list.AddTail(&c);
    POSITION secondB = list.AddTail(&b);

    EXPECT_EQ(firstB, list.Find(&b));
    EXPECT_EQ(secondB, list.Find(&b, firstB));
    EXPECT_EQ(nullptr, list.Find(&b, secondB));
    EXPECT_EQ(nullptr, list.Find(&a, firstB));
    Counted absent(9);
    EXPECT_EQ(nullptr, list.Find(&absent));
}

TEST(TypedPtrList, RemovalKeepsTheRestInOrder)
{
    Counted a(1), b(2), c(3), d(4);
    CountedList list;
    POSITION pa = list.AddTail(&a);
    POSITION pb = list.AddTail(&b);
    list.AddTail(&c);
    POSITION pd = list.AddTail(&d);

    list.RemoveAt(pb);
    EXPECT_EQ((std::vector<int>{1, 3, 4}), Ids(list));
    list.RemoveAt(pa);
    EXPECT_EQ(&c, list.GetHead());
    list.RemoveAt(pd);
    EXPECT_EQ((std::vector<int>{3}), Ids(list));
    list.AddTail(&a);
    EXPECT_EQ((std::vector<int>{3, 1}), Ids(list));
    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(nullptr, list.GetHeadPosition());
    list.AddTail(&b);
    EXPECT_EQ((std::vector<int>{2}), Ids(list));
}

TEST(TypedPtrList, NeverDeletesWhatItPointsTo)
{
    Counted::s_nDestroyed = 0;
    Counted *a = new Counted(1);
    Counted *b = new Counted(2);
    {
        CountedList list;
        list.AddTail(a);
        list.AddTail(b);
        list.RemoveAt(list.GetHeadPosition());
        list.RemoveAll();
        list.AddTail(a);
        list.AddTail(b);
    }  // destroyed while still holding both
    EXPECT_EQ(0, Counted::s_nDestroyed);
    EXPECT_EQ(1, a->m_nId);
    delete a;
    delete b;
    EXPECT_EQ(2, Counted::s_nDestroyed);
}

TEST(ObList, HoldsObjectPointers)
{
    Counted a(1), b(2);
    CObList list;
    list.AddTail(&a);
    list.AddTail(&b);
    EXPECT_EQ(2, list.GetCount());
    POSITION pos = list.GetHeadPosition();
    EXPECT_EQ(&a, list.GetNext(pos));
    EXPECT_EQ(&b, list.GetNext(pos));
    EXPECT_EQ(nullptr, pos);
    EXPECT_NE(nullptr, list.Find(&b));
}

TEST(Array, AddReturnsTheIndexAndElementsAreReachable)
{
    CArray<CString, char const *> names;
    EXPECT_EQ(0, names.GetSize());
    EXPECT_EQ(0, names.Add("a"));
    EXPECT_EQ(1, names.Add("b"));
    EXPECT_EQ(2, names.Add("a"));  // no test for duplicates
    EXPECT_EQ(3, names.GetSize());
    EXPECT_EQ(names.GetAt(1), "b");
    names[0] = "z";
    EXPECT_EQ(names[0], "z");
    names.ElementAt(1) += "!";
    EXPECT_EQ(names.GetAt(1), "b!");
    CArray<CString, char const *> const &view = names;
    EXPECT_EQ(view[2], "a");
}

TEST(Array, SetSizeGrowsWithDefaultValuesAndShrinks)
{
    CArray<int, int> codes;
    codes.Add(5);
    codes.SetSize(4);
    EXPECT_EQ(4, codes.GetSize());
    EXPECT_EQ(5, codes[0]);
    EXPECT_EQ(0, codes[3]);
    codes.SetSize(1);
    EXPECT_EQ(1, codes.GetSize());
    EXPECT_EQ(5, codes.GetAt(0));
    EXPECT_EQ(1, codes.Add(7));
    codes.RemoveAll();
    EXPECT_EQ(0, codes.GetSize());
    EXPECT_EQ(0, codes.Add(9));
}

}  // namespace
