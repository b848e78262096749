#include "TreePrinter.h"

#include <ostream>
#include <unordered_set>
#include <vector>

namespace {

void WriteLine(std::ostream &out, AI_CObject const &object, std::size_t nLevel)
{
    for (std::size_t i = 0; i < nLevel; ++i)
        out << "  ";
    out << static_cast<char const *>(object.GetDescription()) << '\n';
}

// One object on the path from the root, with the children still to visit.
struct Frame
{
    AI_CObject const *pObject;
    std::vector<AI_CObject *> children;
    std::size_t nNext = 0;
};

Frame Enter(AI_CObject const &object)
{
    CTypedPtrList<CObList, AI_CObject *> list;
    object.GetObjects(list);
    Frame frame{&object, {}, 0};
    for (POSITION pos = list.GetHeadPosition(); pos != nullptr;)
        frame.children.push_back(list.GetNext(pos));
    return frame;
}

} // namespace

// The walk keeps its own stack: conditions and blocks may nest deeper than
// the call stack would like.
void WriteTree(std::ostream &out, AI_CObject const &root)
{
    std::vector<Frame> path;
    std::unordered_set<AI_CObject const *> onPath;

    WriteLine(out, root, 0);
    path.push_back(Enter(root));
    onPath.insert(&root);
    while (!path.empty())
    {
        Frame &top = path.back();
        if (top.nNext == top.children.size())
        {
            onPath.erase(top.pObject);
            path.pop_back();
            continue;
        }
        AI_CObject const *child = top.children[top.nNext++];
        WriteLine(out, *child, path.size());
        if (onPath.count(child))
            continue;
        path.push_back(Enter(*child));
        onPath.insert(child);
    }
}
